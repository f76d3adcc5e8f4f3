// controls/guihtmlcontroledit-script.cpp: what scripts can do with a field beyond what all controls can.
#include "controls/guihtmlcontroledit.h"
#include "controls/guiscriptmethod.h"
#include "controls/guiwidgetlineedit.h"
#include "controls/guiwidgetmultiedit.h"

#include <QTextCursor>
#include <algorithm>

namespace {

/// select(start, end): without an end the cursor goes to the start.
void control_select_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args, ScriptValue& result)
{
    result.setNull();
    bool const isRange = args.count() == 2 && guiIsNumber(args, 0) && guiIsNumber(args, 1);
    if (!isRange && !(args.count() == 1 && guiIsNumber(args, 0)))
        return;
    auto* const field = guiControlOf<guiHtmlControlEdit>(data, self);
    double const start = args.get(0)->toNumber(0);
    if (field)
        field->select(start, isRange ? args.get(1)->toNumber(0) : start);
}

int placeIn(double place, int length) { return static_cast<int>(std::clamp(place, 0.0, static_cast<double>(length))); }

} // namespace

void guiHtmlControlEdit::select(double start, double end)
{
    assertOnGuiThread();
    needWidget();
    if (m_lineEdit) {
        int const length = static_cast<int>(m_lineEdit->text().size());
        int const from = placeIn(start, length);
        int const to = placeIn(end, length);
        m_lineEdit->deselect();
        m_lineEdit->setCursorPosition(to);
        if (to != from)
            m_lineEdit->setSelection(from, to - from);
    } else if (m_multiEdit) {
        int const length = m_multiEdit->document()->characterCount() - 1; // it counts the end of the last line
        QTextCursor cursor(m_multiEdit->document());
        cursor.setPosition(placeIn(start, length));
        cursor.setPosition(placeIn(end, length), QTextCursor::KeepAnchor);
        m_multiEdit->setTextCursor(cursor);
        m_multiEdit->ensureCursorVisible();
    }
}

void guiHtmlControlEdit::addScriptMethods(ScriptObject* object)
{
    object->addMethod("select", guiCallOnGuiThread<control_select_qt>);
}
