// controls/guihtmlcustom.h: an `object` element whose behaviour and drawing are up to a component in script. The files:
// guihtmlcustom-script.cpp makes the component's instance and lets go of it, -events.cpp tells it what happens,
// -paint.cpp asks it for its drawing and shows that, -read.cpp reads the element.
#pragma once

#include "controls/guidrawing.h"
#include "controls/guielementlink.h"
#include "page/guihtml.h"
#include "script/hostinterface.h"

#include <chrono>
#include <deque>
#include <memory>
#include <utility>
#include <vector>

class guiWidgetFocus;
class QWidget;

/// A key or the pointer, as a handler hears of it. `modifiers` are those of "ctrl+alt+shift+meta" that are down.
struct guiElementInput
{
    sstring button;    ///< "left", "middle" or "right"; "" without one
    sstring modifiers; //
    int wheel = 0;     ///< how far the wheel was turned, in eighths of a degree; positive away from the user
    sstring key;       ///< name of the key
    sstring text;      ///< what it types
};

/// GUI thread.
class guiHtmlCustom : public guiHtml
{
public:
    /// What the node shares with its script component.
    struct sharedState
    {
        ScriptObject* mouse = nullptr; ///< its properties "x" and "y" are the pointer's place; null without an instance
        int mouseX = 0;                ///< last place of the pointer, relative to the inner corner, pixels
        int mouseY = 0;                //
        guiElementInput input = {};    ///< of the event that is being told
        ScriptObject* keyboard = nullptr; ///< its properties say which key; null unless the instance hears of keys
    };

    explicit guiHtmlCustom(guiHtml* parent = nullptr);
    ~guiHtmlCustom() override;

    int getType() override { return kTypeCustom; }
    using guiHtml::operator=;
    /// Also copies the name and the parameters; the instance remains the other's.
    guiHtml& operator=(guiHtml& other) override;
    guiHtml* Clone(guiHtml* parent) override;
    /// How many exist. A page without any is not searched for them.
    static unsigned count() { return s_count; }

    // ---- The component ----

    /// Stores the name of the component and makes an instance of it; when no class has that name, the node stays
    /// without, after a log line. Runs script.
    void setCompName(sstring const& name);
    sstring getCompName() const { return m_component.name; }
    /// Stores a parameter, which is a property of the instance that there is and of every later one.
    void setParam(sstring const& name, sstring const& value);
    std::vector<std::pair<sstring, sstring>> const& getParams() const { return m_component.params; }
    /// The same while the page is being read: instances are made when it is complete.
    void initCompName(sstring const& name) { m_component.name = name; }
    void initParam(sstring const& name, sstring const& value) { m_component.params.emplace_back(name, value); }

    /// Makes the instance that the page asks for, with its parameters. Runs script.
    void makeInstance();
    bool hasInstance() const { return m_hasInstance; }
    /// The page is complete: "eCreate".
    void notifyOnCreate();
    /// Tells the instance that it goes ("eDestroy") and lets go of it.
    void endInstance();
    /// Lets go of it without a word.
    void dropInstance();
    ScriptObject* getCustomObject() override;
    void buildCustomObject_script() override;
    /// What the toolkit knows the node by. A new one for each instance.
    std::shared_ptr<guiElementLink> const& getLink() const { return m_link; }
    void createChildWidget() override;
    void destroyChildWidget() override;
    /// What takes the keyboard; null unless the instance hears of keys.
    QWidget* getChildWidget() override;
    void setRect(guiRect* rect) override;
    void setEnabled(int enabled) override;
    /// What is shown when the pointer rests on the element: what the toolkit's property "tooltip" says, else the
    /// attribute `title`.
    sstring getTip();
    void initTip(sstring const& tip) { m_component.tip = tip; }

    // ---- Drawing ----

    /// Asks for a new drawing, and paints what it shows of the rectangle (relative to the inner corner; null: of
    /// everything) when it has come.
    void invalidate(guiRect* rect);
    /// Asks for the drawing that a window shows when it appears. The node has been laid out.
    void askFirstDrawing();
    /// Whether one is on its way.
    bool isDrawingAsked() const { return m_painting.isAsked; }
    /// What the window shows, null before the first one.
    guiDrawing const* getDrawing() const { return m_painting.shown.get(); }
    void paintChildrenTo(QPainter* painter, int x, int y, guiWidget* widget, QRegion const* region) override;

    // ---- Events ----

    int canHitTest() override { return 1; }
    void onMouseOn() override;
    void onMouseOff() override;
    void onMouseMove(int x, int y) override;
    void onMouseUp() override;
    void onMouseDown(int x, int y) override;
    void onMouseWheel(int x, int y);
    /// Whether the instance has a handler for the wheel.
    bool hearsWheel();
    /// How many elements have a handler that runs. GUI thread.
    static int tellingCount();
    void onKey();
    void onFocus(bool hasFocus);
    /// A click gives the element the keyboard, if it hears of keys.
    void takeFocus();
    /// The buttons and keys that go with the next pointer event.
    void setInput(guiElementInput const& input) { m_nextInput = input; }
    /// The place that goes with it, relative to the node's corner.
    void setPointer(int x, int y);
    /// Called just before a handler of the instance runs: writes the pointer's place into the mouse object. Any thread.
    void onCallback();

    /// The custom node's record, open to the classes of the page.
    sharedState mx;

private:
    /// What a copy of the node takes over.
    struct component
    {
        sstring name;
        std::vector<std::pair<sstring, sstring>> params;
        sstring tip;
    };

    /// Something that a handler is to be told.
    struct happening
    {
        char const* name = ""; // a literal
        int x = 0;
        int y = 0;
        guiElementInput input;
    };

    struct painting
    {
        std::shared_ptr<guiDrawing const> shown;
        bool isStale = true;  // the element would draw something else now
        bool isAsked = false; // a drawing is on its way
        bool isTimed = false; // one will be asked for when the last one has been shown long enough
        bool isWhole = true;  // the next one is to be painted as a whole
        guiRect part;         // else only this, relative to the inner corner
        std::chrono::steady_clock::time_point lastAsked;
    };

    static inline unsigned s_count = 0;

    // -script.cpp
    void addMethods(ScriptObject* instance);
    void makeInput(ScriptObject* instance);
    void applyParams(ScriptObject* instance);

    // -events.cpp
    void tell(char const* name);
    void call(happening const& what);
    void queue(happening what);
    bool canHear(char const* name);

    // -paint.cpp
    guiExtent innerSize() const;
    bool isInView();
    bool isAskedTooSoon();
    void askDrawing();
    void sendRequest(guiExtent const& size);
    void takeDrawing(std::shared_ptr<guiDrawing> drawing);
    void updatePart(guiRect const& part);
    void paintOnPaper(QPainter& painter, QRect const& inner);

    component m_component;
    bool m_hasInstance = false;        // m.object is this node's own; a copy of a node has only the pointer
    bool m_isBuilding = false;         // getCustomObject() makes the instance when script asks
    bool m_isReported = false;         // that there is no class of the name
    bool m_isCreated = false;          // "eCreate" has been told
    ScriptObject* m_toolkit = nullptr; // kept; null without an instance
    std::shared_ptr<guiElementLink> m_link;
    guiWidgetFocus* m_focusWidget = nullptr; // owned
    painting m_painting;
    guiElementInput m_nextInput;
    bool m_isTelling = false;        // a handler of a pointer event is running
    std::deque<happening> m_waiting; // what has happened meanwhile
};
