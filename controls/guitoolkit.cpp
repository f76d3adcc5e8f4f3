// controls/guitoolkit.cpp: see guitoolkit.h: the record of a toolkit object, and what its drawing methods record.
#include "controls/guitoolkit.h"

#include "controls/guihtmlcustom.h"
#include "controls/guiscriptrecord.h"
#include "controls/guiscriptvalue.h"
#include "foundation/vela-log.h"
#include "foundation/vela-threadrole.h"
#include "page/guihtmlparser.h"
#include "page/guipageroot.h"
#include "page/guisavedpainter.h"

#include <QPainter>
#include <algorithm>
#include <cassert>
#include <utility>

namespace {

constexpr char kBlack[] = "#000000";

/// Each drawing begins with these, whatever the last one left.
void resetProperties(ScriptObject* toolkit)
{
    guiSetText(toolkit, "color", kBlack);
    guiSetText(toolkit, "textColor", "");
    guiSetText(toolkit, "fontFace", "");
    guiSetNumber(toolkit, "fontSize", 0);
    for (char const* name : {"bold", "italic", "smooth"})
        guiSetSwitch(toolkit, name, false);
}

void publishRect(guiToolkitData const& record)
{
    guiSetNumber(record.rectObject, "left", 0);
    guiSetNumber(record.rectObject, "top", 0);
    guiSetNumber(record.rectObject, "width", record.rect.width);
    guiSetNumber(record.rectObject, "height", record.rect.height);
    guiSetObject(record.self, "rect", record.rectObject);
}

/// Draws at once, for a caller that has a painter.
void drawNow(guiToolkitData const& record)
{
    guiHtmlCustom* node = record.link ? record.link->node() : nullptr;
    if (!node)
        return;
    record.drawing->takeImages();
    guiSavedPainter const saved(*record.painter);
    if (!record.region.isEmpty())
        record.painter->setClipRegion(record.region, Qt::IntersectClip);
    record.drawing->paintTo(*record.painter, node, record.rect.left, record.rect.top);
}

guiRect wholeOf(guiToolkitData const& record) { return {0, record.rect.width, 0, record.rect.height}; }

guiAlignment alignmentOf(unsigned long flags)
{
    return flags == kAlignCenter || flags == kAlignRight ? static_cast<guiAlignment>(flags) : kAlignLeft;
}

} // namespace

guiToolkitData* guiToolkit_getData(ScriptPrivate* data) { return guiRecordIn<guiToolkitData>(data); }

guiToolkitData* guiToolkit_recordingIn(ScriptPrivate* data)
{
    guiToolkitData* record = guiToolkit_getData(data);
    return record && record->drawing ? record : nullptr;
}

void guiToolkit_onCreate(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs&, ScriptValue& result)
{
    auto record = std::make_unique<guiToolkitData>();
    record->tag = kRecordTag;
    record->self = self;
    data->setData(kPrivateKey, record.release()); // guiToolkit_onDestroy() takes it back
    guiSetNumber(self, "XLEFT", kAlignLeft);
    guiSetNumber(self, "XCENTER", kAlignCenter);
    guiSetNumber(self, "XRIGHT", kAlignRight);
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
    guiSetText(toolkit, "tooltip", "");
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
    guiScratchValue const value;
    auto read = [&](char const* name, int& number) {
        object->getProperty(sstring(name), value.get());
        number = guiToCoordinate(*value);
        return value->isNumber();
    };
    return read("left", out->left) && read("top", out->top) && read("width", out->width) && read("height", out->height);
}

guiTextStyle guiToolkit_textStyle(guiToolkitData const& record)
{
    guiTextStyle style;
    style.face = guiStringOf(record.self, "fontFace");
    style.points = std::clamp(guiNumberOf(record.self, "fontSize"), 0, 1000);
    style.bold = guiSwitchOf(record.self, "bold");
    style.italic = guiSwitchOf(record.self, "italic");
    style.color = guiStringOf(record.self, "textColor");
    return style;
}

guiColor guiToolkit_colorOf(guiToolkitData const& record, sstring const& color)
{
    sstring const own = color.getLength() != 0 ? color : guiStringOf(record.self, "color");
    return guiHtmlParser::convColorToStruct(own.getLength() != 0 ? own : sstring(kBlack));
}

void guiToolkit_fill(ScriptPrivate* data, sstring color, ScriptObject* rect)
{
    guiToolkitData* record = guiToolkit_recordingIn(data);
    guiRect area;
    if (!record || (rect && !guiReadRect(rect, &area)))
        return;
    record->drawing->fill(guiToolkit_colorOf(*record, color), rect ? area : wholeOf(*record));
}

void guiToolkit_drawLine(ScriptPrivate* data, sstring color, int x1, int y1, int x2, int y2, int width)
{
    guiToolkitData* record = guiToolkit_recordingIn(data);
    if (!record)
        return;
    guiColor const own = guiHtmlParser::convColorToStruct(color.getLength() != 0 ? color : sstring(kBlack));
    record->drawing->line(own, x1, y1, x2, y2, width, guiSwitchOf(record->self, "smooth"));
}

void guiToolkit_drawImage(ScriptPrivate* data, ScriptObject* image, int x, int y, int width, int height, int offsetX,
                          int offsetY)
{
    if (guiToolkitData* record = guiToolkit_recordingIn(data); record && image)
        record->drawing->image(image, x, y, width, height, offsetX, offsetY);
}

void guiToolkit_drawText(ScriptPrivate* data, sstring text, ScriptObject* rect, unsigned long flags)
{
    guiToolkitData* record = guiToolkit_recordingIn(data);
    guiRect area;
    if (!record || (rect && !guiReadRect(rect, &area)))
        return;
    guiTextStyle style = guiToolkit_textStyle(*record);
    style.align = alignmentOf(flags);
    record->drawing->text(text, rect ? area : wholeOf(*record), style);
}
