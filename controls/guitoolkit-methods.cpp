// controls/guitoolkit-methods.cpp: the methods of the script class GuiToolkit: each reads its arguments on the script
// thread and does nothing when their number or kind is wrong. Only measuring a text has to wait for the GUI thread, to
// which fonts belong.
#include "controls/guihtmlcustom.h"
#include "controls/guiscriptmethod.h"
#include "controls/guiscriptvalue.h"
#include "controls/guitoolkit.h"
#include "foundation/vela-threadrole.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace {

/// Any of the two tests for numbers.
bool isAnyNumber(ScriptArgs& args, int index)
{
    return index < args.count() && (args.get(index)->isNumber() || args.get(index)->isInt());
}

bool areNumbers(ScriptArgs& args, int first, int end)
{
    for (int i = first; i < end; ++i)
        if (!isAnyNumber(args, i))
            return false;
    return true;
}

int coordinate(ScriptArgs& args, int index) { return guiToCoordinate(*args.get(index)); }

ScriptObject* objectOf(ScriptArgs& args, int index)
{
    return index < args.count() && args.get(index)->isObject() ? args.get(index)->toObject(0) : nullptr;
}

// ---- The methods that draw ----

void guiToolkit_fill_script(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs& args, ScriptValue& result)
{
    result.setNull();
    if (!guiIsString(args, 0) || args.count() > 2)
        return;
    ScriptObject* rect = objectOf(args, 1);
    if (args.count() == 1 || rect)
        guiToolkit_fill(data, guiTextOf(args, 0), rect);
}

void guiToolkit_drawLine_script(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs& args, ScriptValue& result)
{
    constexpr int kCount = 6;
    result.setNull();
    if (args.count() != kCount || !guiIsString(args, 0) || !areNumbers(args, 1, kCount))
        return;
    guiToolkit_drawLine(data, guiTextOf(args, 0), coordinate(args, 1), coordinate(args, 2), coordinate(args, 3),
                        coordinate(args, 4), coordinate(args, 5));
}

void guiToolkit_drawImage_script(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs& args, ScriptValue& result)
{
    result.setNull();
    int const count = args.count();
    ScriptObject* image = objectOf(args, 0);
    if (!image || (count != 3 && count != 5 && count != 7) || !areNumbers(args, 1, count))
        return;
    bool const isSized = count >= 5;
    bool const isMoved = count == 7;
    guiToolkit_drawImage(data, image, coordinate(args, 1), coordinate(args, 2), isSized ? coordinate(args, 3) : -1,
                         isSized ? coordinate(args, 4) : -1, isMoved ? coordinate(args, 5) : 0,
                         isMoved ? coordinate(args, 6) : 0);
}

void guiToolkit_drawText_script(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs& args, ScriptValue& result)
{
    result.setNull();
    int const count = args.count();
    ScriptObject* rect = objectOf(args, 1);
    bool const isKnown = count == 1 || (count == 2 && rect) || (count == 3 && rect && guiIsNumber(args, 2));
    if (!isKnown)
        return;
    unsigned long const flags = count == 3 ? static_cast<unsigned long>(args.get(2)->toInt(0)) : 0;
    guiToolkit_drawText(data, guiTextOf(args, 0), rect, flags);
}

/// What the shapes have in common: the colour first, a line width last, when there is one.
struct shapeArguments
{
    guiColor color;
    int lineWidth = 0; // 0: filled
};

/// `count`: of the arguments before the line width. None when the arguments are wrong or nothing is being recorded.
std::optional<shapeArguments> readShape(guiToolkitData* record, ScriptArgs& args, int count)
{
    bool const hasWidth = args.count() == count + 1;
    if (!record || (args.count() != count && !hasWidth) || !guiIsString(args, 0))
        return std::nullopt;
    shapeArguments shape{guiToolkit_colorOf(*record, guiTextOf(args, 0))};
    if (!hasWidth)
        return shape;
    shape.lineWidth = isAnyNumber(args, count) ? coordinate(args, count) : 0;
    return shape.lineWidth > 0 ? std::optional(shape) : std::nullopt;
}

void guiToolkit_drawEllipse_script(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs& args,
                                   ScriptValue& result)
{
    constexpr int kCount = 5;
    result.setNull();
    guiToolkitData* record = guiToolkit_recordingIn(data);
    std::optional<shapeArguments> const shape = readShape(record, args, kCount);
    if (!shape || !areNumbers(args, 1, kCount))
        return;
    guiRect const rect{coordinate(args, 1), coordinate(args, 3), coordinate(args, 2), coordinate(args, 4)};
    record->drawing->ellipse(shape->color, rect, shape->lineWidth);
}

// ---- Lists of points ----

/// Reads arrays element by element, for a host that does not read them as a whole.
class pointReader
{
public:
    /// Appends the numbers of an array, and of the arrays in it; false when it holds something else.
    bool read(ScriptObject* array, std::vector<double>& numbers, bool isInside = false)
    {
        int const count = lengthOf(array);
        for (int i = 0; i < count; ++i) {
            array->getProperty(sformat("%d", i), m_value.get());
            if (m_value->isNumber()) {
                numbers.push_back(m_value->toNumber(0));
                continue;
            }
            std::shared_ptr<ScriptObject> const pair = guiKept(m_value->isObject() ? m_value->toObject(0) : nullptr);
            if (!pair || isInside ||
                !read(pair.get(), numbers, true)) // the value that holds it is used for its numbers
                return false;
        }
        return count >= 0;
    }

private:
    int lengthOf(ScriptObject* array)
    {
        constexpr int kMostNumbers = 10'000'000;
        array->getProperty(sstring("length"), m_value.get());
        return m_value->isNumber() ? std::min(m_value->toInt(-1), kMostNumbers) : -1;
    }

    guiScratchValue m_value;
};

/// x and y in turn; empty when the object is no list of points.
std::vector<double> readPoints(ScriptObject* array)
{
    std::vector<double> numbers;
    int const count = array->readNumbers(nullptr, 0);
    if (count >= 0) {
        numbers.resize(static_cast<std::size_t>(count));
        array->readNumbers(numbers.data(), count);
    } else if (!pointReader().read(array, numbers)) {
        numbers.clear();
    }
    if (numbers.size() % 2 != 0)
        numbers.clear();
    return numbers;
}

void drawPoints(ScriptPrivate* data, ScriptArgs& args, bool isClosed)
{
    constexpr int kCount = 2;
    guiToolkitData* record = guiToolkit_recordingIn(data);
    std::optional<shapeArguments> const shape = readShape(record, args, kCount);
    ScriptObject* points = shape ? objectOf(args, 1) : nullptr;
    if (points)
        record->drawing->polygon(shape->color, readPoints(points), shape->lineWidth, isClosed);
}

void guiToolkit_drawPolygon_script(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs& args,
                                   ScriptValue& result)
{
    result.setNull();
    drawPoints(data, args, true);
}

void guiToolkit_drawPolyline_script(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs& args,
                                    ScriptValue& result)
{
    result.setNull();
    drawPoints(data, args, false);
}

// ---- Asking for a new drawing, measuring ----

void guiToolkit_repaint_script(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs& args, ScriptValue& result)
{
    result.setNull();
    guiToolkitData* record = guiToolkit_getData(data);
    if (!record || !record->link)
        return;
    guiRect part;
    if (args.count() == 0)
        record->link->askRepaint(std::nullopt);
    else if (args.count() == 1 && objectOf(args, 0) && guiReadRect(objectOf(args, 0), &part))
        record->link->askRepaint(part);
    else if (args.count() == 4 && areNumbers(args, 0, 4))
        record->link->askRepaint(
            guiRect{coordinate(args, 0), coordinate(args, 2), coordinate(args, 1), coordinate(args, 3)});
}

/// An object with the properties "width" and "height".
void setExtent(ScriptObject* self, guiExtent const& size, ScriptValue& result)
{
    HostPlatform* platform = guiControlHost::current().platform();
    ScriptObject* object = platform->createObject(self->getEngine());
    guiSetNumber(object, "width", size.width);
    guiSetNumber(object, "height", size.height);
    result.setObject(object);
    platform->destroyObject(object);
}

void guiToolkit_measureText_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args,
                               ScriptValue& result)
{
    assertOnGuiThread();
    result.setNull();
    guiToolkitData* record = guiToolkit_getData(data);
    guiHtmlCustom* node = record && record->link ? record->link->node() : nullptr;
    bool const isKnown = args.count() == 1 || (args.count() == 2 && isAnyNumber(args, 1));
    if (!node || !isKnown)
        return;
    int const width = args.count() == 2 ? std::max(0, coordinate(args, 1)) : 0;
    setExtent(self, guiMeasureText(node, guiTextOf(args, 0), guiToolkit_textStyle(*record), width), result);
}

constexpr guiScriptMethod kMethods[] = {
    {"fill", guiToolkit_fill_script},
    {"drawLine", guiToolkit_drawLine_script},
    {"drawImage", guiToolkit_drawImage_script},
    {"drawText", guiToolkit_drawText_script},
    {"repaint", guiToolkit_repaint_script},
    {"drawEllipse", guiToolkit_drawEllipse_script},
    {"drawPolygon", guiToolkit_drawPolygon_script},
    {"drawPolyline", guiToolkit_drawPolyline_script},
    {"measureText", guiCallOnGuiThread<guiToolkit_measureText_qt>},
};

} // namespace

int guiToolkit_onConfigure(ScriptClass& scriptClass)
{
    scriptClass.setCreateHandler(guiToolkit_onCreate);
    scriptClass.setDestroyHandler(guiToolkit_onDestroy);
    for (guiScriptMethod const& entry : kMethods)
        scriptClass.addMethod(sstring(entry.name), entry.method);
    return 1;
}
