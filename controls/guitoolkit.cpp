// controls/guitoolkit.cpp: see guitoolkit.h: the record of a toolkit object, and what its drawing methods record.
#include "controls/guitoolkit.h"

#include "controls/guicontrolhost.h"
#include "controls/guihtmlcustom.h"
#include "controls/guiscriptrecord.h"
#include "foundation/vela-log.h"
#include "foundation/vela-threadrole.h"
#include "page/guihtmlparser.h"
#include "page/guipageroot.h"

#include <QPainter>
#include <algorithm>
#include <cassert>
#include <utility>

namespace {

constexpr char kBlack[] = "#000000";

/// A script value for the length of a block.
class scratchValue
{
public:
    scratchValue() : m_value(guiControlHost::current().newValue()) {}
    ~scratchValue() { guiControlHost::current().deleteValue(m_value); }
    scratchValue(scratchValue const&) = delete;
    scratchValue& operator=(scratchValue const&) = delete;

    ScriptValue* operator->() const { return m_value; }
    ScriptValue* get() const { return m_value; }

private:
    ScriptValue* m_value; // owned
};

void setNumber(ScriptObject* object, char const* name, int number)
{
    scratchValue value;
    value->setInt(number);
    object->setProperty(sstring(name), value.get());
}

void setText(ScriptObject* object, char const* name, char const* text)
{
    scratchValue value;
    value->setString(sstring(text));
    object->setProperty(sstring(name), value.get());
}

void setSwitch(ScriptObject* object, char const* name, bool isOn)
{
    scratchValue value;
    value->setBool(isOn);
    object->setProperty(sstring(name), value.get());
}

void setObject(ScriptObject* object, char const* name, ScriptObject* held)
{
    scratchValue value;
    value->setObject(held);
    object->setProperty(sstring(name), value.get());
}

/// A property that is a text, "" for anything else.
sstring textProperty(ScriptObject* object, char const* name)
{
    scratchValue value;
    object->getProperty(sstring(name), value.get());
    return value->isString() ? value->toString(0) : sstring();
}

int numberProperty(ScriptObject* object, char const* name)
{
    scratchValue value;
    object->getProperty(sstring(name), value.get());
    return value->toInt(0);
}

bool switchProperty(ScriptObject* object, char const* name)
{
    scratchValue value;
    object->getProperty(sstring(name), value.get());
    return value->toBool(0);
}

/// Each drawing begins with these, whatever the last one left.
void resetProperties(ScriptObject* toolkit)
{
    setText(toolkit, "color", kBlack);
    setText(toolkit, "textColor", "");
    setText(toolkit, "fontFace", "");
    setNumber(toolkit, "fontSize", 0);
    for (char const* name : {"bold", "italic", "smooth"})
        setSwitch(toolkit, name, false);
}

void publishRect(guiToolkitData const& record)
{
    setNumber(record.rectObject, "left", 0);
    setNumber(record.rectObject, "top", 0);
    setNumber(record.rectObject, "width", record.rect.width);
    setNumber(record.rectObject, "height", record.rect.height);
    setObject(record.self, "rect", record.rectObject);
}

/// Draws at once, for a caller that has a painter.
void drawNow(guiToolkitData const& record)
{
    guiHtmlCustom* node = record.link ? record.link->node() : nullptr;
    if (!node)
        return;
    record.drawing->takeImages();
    record.painter->save();
    if (!record.region.isEmpty())
        record.painter->setClipRegion(record.region, Qt::IntersectClip);
    record.drawing->paintTo(*record.painter, node, record.rect.left, record.rect.top);
    record.painter->restore();
}

guiRect wholeOf(guiToolkitData const& record) { return {0, record.rect.width, 0, record.rect.height}; }

guiAlignment alignmentOf(unsigned long flags)
{
    return flags == kAlignCenter || flags == kAlignRight ? static_cast<guiAlignment>(flags) : kAlignLeft;
}

/// The record while it is being drawn with, null otherwise.
guiToolkitData* recordingIn(ScriptPrivate* data)
{
    guiToolkitData* record = guiToolkit_getData(data);
    return record && record->drawing ? record : nullptr;
}

} // namespace

guiToolkitData* guiToolkit_getData(ScriptPrivate* data) { return guiRecordIn<guiToolkitData>(data); }

void guiToolkit_onCreate(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs&, ScriptValue& result)
{
    auto record = std::make_unique<guiToolkitData>();
    record->tag = kRecordTag;
    record->self = self;
    data->setData(kPrivateKey, record.release()); // guiToolkit_onDestroy() takes it back
    setNumber(self, "XLEFT", kAlignLeft);
    setNumber(self, "XCENTER", kAlignCenter);
    setNumber(self, "XRIGHT", kAlignRight);
    result.setBool(1);
}

void guiToolkit_onDestroy(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs&, ScriptValue& result)
{
    result.setBool(1);
    std::unique_ptr<guiToolkitData> const record(guiToolkit_getData(data));
    if (!record)
        return;
    if (HostPlatform* platform = record->rectObject ? guiControlHost::current().platform() : nullptr)
        platform->destroyObject(record->rectObject);
    data->setData(kPrivateKey, nullptr);
    record->tag = 0; // whoever still has the record does not take it for one
}

// ---- The toolkit of an element ----

ScriptObject* BuildToolkit(guiHtmlCustom* node)
{
    ScriptObject* page = guiPageObjectOf(node);
    HostPlatform* platform = guiControlHost::current().platform();
    ScriptObject* toolkit = page && platform ? page->getEngine()->createInstance(sstring("GuiToolkit")) : nullptr;
    guiToolkitData* record = toolkit ? guiToolkit_getData(toolkit->getPrivate()) : nullptr;
    if (!record) {
        velaLog("BuildToolkit() - failed to construct toolkit object\n");
        if (toolkit)
            toolkit->letGo();
        return nullptr;
    }
    record->link = node->getLink();
    record->rectObject = platform->createObject(page->getEngine());
    publishRect(*record);
    resetProperties(toolkit);
    setText(toolkit, "tooltip", "");
    return toolkit;
}

void OpenToolkit(ScriptObject* toolkit, [[maybe_unused]] guiHtmlCustom* node, QPainter* painter, QRegion const* region,
                 guiRect* rect)
{
    guiToolkitData* record = toolkit ? guiToolkit_getData(toolkit->getPrivate()) : nullptr;
    if (!record || !record->rectObject)
        return;
    assert(!node || !record->link || record->link == node->getLink());
    record->painter = painter;
    record->region = region ? *region : QRegion();
    record->rect = *rect;
    resetProperties(toolkit);
    publishRect(*record);
    record->drawing = std::make_shared<guiDrawing>(guiExtent{rect->width, rect->height});
}

std::shared_ptr<guiDrawing> CloseToolkit(ScriptObject* toolkit)
{
    guiToolkitData* record = toolkit ? guiToolkit_getData(toolkit->getPrivate()) : nullptr;
    if (!record || !record->drawing)
        return nullptr;
    if (record->painter)
        drawNow(*record);
    record->painter = nullptr;
    record->region = QRegion();
    return std::exchange(record->drawing, nullptr);
}

void DestroyToolkit(ScriptObject* toolkit)
{
    if (toolkit)
        toolkit->letGo();
}

// ---- What the methods record ----

int guiToCoordinate(ScriptValue const& value)
{
    constexpr int kFarthest = 10'000'000; // pixels
    return std::clamp(value.toInt(0), -kFarthest, kFarthest);
}

bool guiReadRect(ScriptObject* object, guiRect* out)
{
    scratchValue value;
    auto read = [&](char const* name, int& number) {
        object->getProperty(sstring(name), value.get());
        number = guiToCoordinate(*value.get());
        return value->isNumber();
    };
    return read("left", out->left) && read("top", out->top) && read("width", out->width) && read("height", out->height);
}

guiTextStyle guiToolkit_textStyle(guiToolkitData const& record)
{
    guiTextStyle style;
    style.face = textProperty(record.self, "fontFace");
    style.points = std::clamp(numberProperty(record.self, "fontSize"), 0, 1000);
    style.bold = switchProperty(record.self, "bold");
    style.italic = switchProperty(record.self, "italic");
    style.color = textProperty(record.self, "textColor");
    return style;
}

guiColor guiToolkit_colorOf(guiToolkitData const& record, sstring const& color)
{
    sstring const own = color.getLength() != 0 ? color : textProperty(record.self, "color");
    return guiHtmlParser::convColorToStruct(own.getLength() != 0 ? own : sstring(kBlack));
}

void guiToolkit_fill(ScriptPrivate* data, sstring color, ScriptObject* rect)
{
    guiToolkitData* record = recordingIn(data);
    guiRect area;
    if (!record || (rect && !guiReadRect(rect, &area)))
        return;
    record->drawing->fill(guiToolkit_colorOf(*record, color), rect ? area : wholeOf(*record));
}

void guiToolkit_drawLine(ScriptPrivate* data, sstring color, int x1, int y1, int x2, int y2, int width)
{
    guiToolkitData* record = recordingIn(data);
    if (!record)
        return;
    guiColor const own = guiHtmlParser::convColorToStruct(color.getLength() != 0 ? color : sstring(kBlack));
    record->drawing->line(own, x1, y1, x2, y2, width, switchProperty(record->self, "smooth"));
}

void guiToolkit_drawImage(ScriptPrivate* data, ScriptObject* image, int x, int y, int width, int height, int offsetX,
                          int offsetY)
{
    if (guiToolkitData* record = recordingIn(data); record && image)
        record->drawing->image(image, x, y, width, height, offsetX, offsetY);
}

void guiToolkit_drawText(ScriptPrivate* data, sstring text, ScriptObject* rect, unsigned long flags)
{
    guiToolkitData* record = recordingIn(data);
    guiRect area;
    if (!record || (rect && !guiReadRect(rect, &area)))
        return;
    guiTextStyle style = guiToolkit_textStyle(*record);
    style.align = alignmentOf(flags);
    record->drawing->text(text, rect ? area : wholeOf(*record), style);
}
