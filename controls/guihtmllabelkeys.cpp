// controls/guihtmllabelkeys.cpp: see guihtmllabelkeys.h.
#include "controls/guihtmllabelkeys.h"

#include "controls/guieventscope.h"
#include "foundation/vela-threadrole.h"
#include "page/guihtmltext.h"
#include "page/guipageroot.h"

#include <QShortcut>
#include <QWidget>

guiHtmlLabelKeys::~guiHtmlLabelKeys() { stopListening(); }

guiHtml& guiHtmlLabelKeys::operator=(guiHtml& other)
{
    guiHtml::operator=(other);
    if (auto const* keys = dynamic_cast<guiHtmlLabelKeys const*>(&other))
        m_keys = keys->m_keys;
    return *this;
}

// Layout places every node of a page that is in a window.
void guiHtmlLabelKeys::setRect(guiRect* rect)
{
    guiHtml::setRect(rect);
    QWidget* const window = getTopLevelWidget();
    if (window && m_shortcuts.empty())
        listen(window);
}

void guiHtmlLabelKeys::destroyChildWidget()
{
    guiHtml::destroyChildWidget();
    stopListening();
}

/// One of the keys may be calling now.
void guiHtmlLabelKeys::stopListening()
{
    for (QPointer<QShortcut> const& key : m_shortcuts) {
        if (!key)
            continue;
        key->setEnabled(false);
        key->disconnect();
        key->deleteLater();
    }
    m_shortcuts.clear();
}

/// Of labels with one letter each press of the key takes the next.
void guiHtmlLabelKeys::listen(QWidget* window)
{
    assertOnGuiThread();
    for (auto const& [letter, target] : m_keys) {
        auto* const key = new QShortcut(QKeySequence(Qt::ALT | static_cast<Qt::Key>(letter)), window);
        auto const act = [this, name = target] {
            guiEventScope scope;
            if (guiPageRoot* page = getBaseHtml())
                guiActOnLabel(page, name);
        };
        QObject::connect(key, &QShortcut::activated, key, act);
        QObject::connect(key, &QShortcut::activatedAmbiguously, key, act);
        m_shortcuts.emplace_back(key);
    }
}
