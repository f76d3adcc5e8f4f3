// page/guihtml.h: the base class of all page elements. A page is a tree of nodes: the root (guipageroot.h), text runs
// (guihtmltext.h), images, controls, forms and framesets derive from guiHtml; a plain guiHtml is a table, a cell or a
// frame. guihtml.cpp makes, copies and destroys nodes, guihtml-tree.cpp walks the tree, guihtml-dump.cpp writes it as
// text, guihtmlparser-load.cpp fills a node from page text, guihtmlsize.cpp computes its rectangle, guihtml-paint.cpp
// paints it, guihtml-link.cpp follows its links.
#pragma once

#include "foundation/vela-string.h"
#include "foundation/vela-threadrole.h"
#include "page/guichildlist.h"
#include "page/guilayoutmemo.h"
#include "page/guitypes.h"
#include "page/guizoomedlength.h"

#include <QPointer>
#include <atomic>
#include <memory>
#include <optional>
#include <vector>

class guiPageRoot;
struct guiRadioGroup;
struct guiUnzoomed;
class guiWidget;
class QFont;
class QPainter;
class QPainterPath;
class QPixmap;
struct guiPicture;
class QRegion;
class QScrollBar;
class QWidget;
class ScriptObject;
class ScriptValue;
template <typename T>
class hashlist;

/// The strings that a node may have. Most nodes have none, so only those that are not empty are stored.
enum guiNodeString : unsigned char
{
    kStringFont,
    kStringName,       ///< attribute `name`
    kStringMouseOver,  ///< handler links of the four mouse attributes
    kStringMouseOut,   //
    kStringMouseDown,  //
    kStringMouseUp,    //
    kStringSource,     ///< attribute `src` until dynamicLoad() has loaded it
    kStringFile,       ///< the file that the node's content came from
    kStringCaption,    ///< title of a group box
    kStringBookmark,   ///< what "#name" in a link jumps to
    kStringFace,       ///< font override "face,points", either part may be missing; empty: the parent's font
    kStringBackground, ///< file name of the background image
    kStringPlace,      ///< " in FILE:LINE" of an element that names a file or a component
    kStringRare,       ///< what guirareattributes.h keeps
    kStringTitle,      ///< attribute `title`: the tip that is shown where the pointer rests
};

/// The colours of a node that a page gives, itself or by an element around the node.
enum guiGivenColor : std::uint8_t
{
    kGivenText = 1,
    kGivenLink = 2,
    kGivenActiveLink = 4,
};

/// The colours of borders that a page gives.
enum guiGivenBorder : std::uint8_t
{
    kGivenLight = 1,
    kGivenMiddle = 2,
    kGivenDark = 4,
};

/// Which colour of a line that the page does not choose (guiinks.h).
enum class guiEdge : std::uint8_t
{
    kNone,
    kLight,
    kDark,
};

/// One page element. Every function is the GUI thread's unless it says otherwise; other threads may ask the registry
/// whether a node exists.
class guiHtml
{
public:
    /// What getType() returns.
    enum : int
    {
        kTypePlain = 0,
        kTypeBase = 1,
        kTypeForm = 2,
        kTypeImage = 3,
        kTypeText = 4,
        kTypeControl = 5,
        kTypeFrameset = 6,
        kTypeCustom = 7,
    };

    /// Minimum and requested size on both axes.
    struct sizes_t
    {
        int cxMin = 0;                    ///< pixels
        int cyMin = 0;                    //
        guiSizeUnit unitX = kUnitUnbound; ///< what x and y count
        guiSizeUnit unitY = kUnitUnbound; //
        unsigned x = 0;
        unsigned y = 0;
    };

    /// Scroll bars and how far the content is scrolled, in pixels subtracted from the children's origin.
    struct scroll_t
    {
        QPointer<QScrollBar> barX; // owned; none while the content fits. Qt may have deleted it with the window.
        QPointer<QScrollBar> barY; //
        unsigned posX = 0;
        unsigned posY = 0;
        unsigned rangeX = 0; ///< largest position
        unsigned rangeY = 0; //
    };

    struct rare_t;

    /// The parts of a node's data that are allocated.
    struct links_t
    {
        guiChildList children;        // the nodes in it are owned
        std::unique_ptr<rare_t> rare; // null: all defaults
    };

    /// The parts that a copy takes over as they are, except `layout`. Those that layout reads of every node stand
    /// first: on a large page, layout takes as long as fetching the nodes from memory takes.
    struct fields_t
    {
        guiHtml* parent = nullptr;   // not owned
        std::uint16_t rareParts = 0; // what `rare` holds: one bit per guiNodeString, and kRareScroll
        guiAlignment alignX = kAlignLeft;
        guiAlignment alignY = kAlignCenter;
        std::uint8_t expandChildren = 0; ///< gives spare space to its children
        std::uint8_t expandWidth = 0;    ///< may grow horizontally
        std::uint8_t expandHeight = 0;   ///< may grow vertically
        guiSizePolicy scrollMode = kPolicyResize;
        unsigned activeCx = 0; ///< the size finally given, pixels
        unsigned activeCy = 0; //
        sizes_t dynamic;       ///< what layout computed from `fixed` and the content
        int space = 0;         ///< pixels between the border and the content
        int divide = 0;        ///< pixels between neighbouring children and between layers
        int border = 0;        ///< border width
        guiRect rect;          ///< relative to the parent's top left corner
        guiLayoutMemo layout;  ///< what the layout engine remembers; a copy starts without it

        sizes_t fixed; ///< static: what the page's attributes ask for
        guiPackedColor textColor = guiColor::Black;
        guiPackedColor linkColor = guiColor::BrightBlue;
        guiPackedColor activeLinkColor = guiColor::BrightRed;
        std::uint8_t useSystemFont = 0;
        std::uint8_t tabOrderDirty = 1;
        std::uint8_t enabled = 1;
        std::uint8_t visible = 1; ///< 0: put away with all that is in it (guihtmlsheet.h)
        std::uint8_t current : 1 = 0;
        std::uint8_t hover : 1 = 0;
        std::uint8_t spacious : 1 =
            0; ///< in an element with `gap`: lines share a base line, buttons have a least width
        std::uint8_t lateWidgets : 1 = 0; ///< the controls below get their widgets when they are needed, however few
        std::uint8_t hasListener : 1 = 0; ///< the end listener is told when the node goes; not copied
        guiDirection direction : 2 = guiDirection::kByText; ///< of the paragraphs in it
        std::uint8_t givenColors = 0;   ///< bits of guiGivenColor; the others are chosen when they are painted
        std::uint16_t padding = 0;      ///< the inner part of `space`, pixels: the background covers it
        std::uint16_t zoom = kUnzoomed; ///< what the node's lengths are scaled by, percent (guizoom.h)
    };

    /// A node's data. What few nodes have is in `rare`, behind the accessors below.
    struct m_t : links_t, fields_t
    {
        /// The script object that stands for this node, null without one; the node holds a reference to it. Set on the
        /// script thread.
        std::atomic<ScriptObject*> object{nullptr};
    };

    /// A node that is in no child list yet. With a parent (not owned; the node is not appended to it) it starts with
    /// the parent's text and link colours, and, if the parent's window has a page object, with a script object of its
    /// own. Any thread for a node without a parent.
    explicit guiHtml(guiHtml* parent = nullptr);
    /// A node with the same fields: see operator=.
    guiHtml(guiHtml const& other);

    // ---- The virtual operations, in slot order ----

    /// Destroys the node's widgets, then its children (the last one first), then takes the node out of the registry.
    virtual ~guiHtml();
    /// Copies every field except the widgets. The copy is shallow: both nodes then list the same children. The children
    /// live until the last node that lists them is destroyed; appending to one of the two takes them from the other.
    virtual guiHtml& operator=(guiHtml& other);
    /// A new node of the same class, assigned from this one, with the given parent (not owned). The caller owns the
    /// result.
    virtual guiHtml* Clone(guiHtml* parent);
    virtual int getType() { return kTypePlain; }
    virtual guiRect getRect() { return m.rect; }
    /// The rectangle less the border, relative to the parent like getRect().
    virtual void getClientRect(guiRect* out);
    /// This node or the first below it (depth first, in child order) whose name is equal without regard to case.
    virtual guiHtml* getNamed(sstring& name);
    /// The same by bookmark name.
    virtual guiHtml* getBookmarked(sstring& bookmark);
    virtual sstring getName();
    /// Places the node and, from its active size, everything in it.
    virtual void setRect(guiRect* rect);
    /// The rectangle in coordinates of the top-level widget.
    virtual void getRectInWidget(guiRect* out);
    /// The part of the rectangle that no ancestor's client rectangle cuts off, in coordinates of the top-level widget;
    /// width or height 0 when nothing is left.
    virtual void getClipRect(guiRect* out);
    /// The window's widget, null while the page is in no open window.
    virtual QWidget* getTopLevelWidget();
    /// The page root, null for a node outside a page.
    virtual guiPageRoot* getBaseHtml();
    virtual ScriptObject* getCustomObject();
    /// Asks the script side for the node's custom object and enters it in the component's map; logs a failure.
    virtual void buildCustomObject_script();
    /// The tree from here as text, each line indented by `indent` blanks.
    virtual sstring toString(unsigned indent);
    /// Replaces the content by a file's: a page or a picture. "#name" at the end scrolls there. 1 or 0.
    virtual int loadFile(sstring file);
    virtual int loadBackground(sstring file);
    /// Replaces the content by a page or a part of one. `directory`: where the page's relative names start. 1 or 0.
    virtual int setText(sstring const& content, sstring const& directory);
    virtual void setCaption(sstring const& caption);
    /// Starts every pending `src` load from here down. 1 if all succeeded.
    virtual int dynamicLoad();
    virtual int setBackgroundImage(sstring const& file);
    /// Schedules a repaint of the node.
    virtual void update();
    /// The page became visible.
    virtual void onShow();
    /// Enables or disables the node and everything below it.
    virtual void setEnabled(int enabled);
    virtual int isEnabled() { return m.enabled; }
    /// The font of the node's text and, through `points`, its size.
    virtual QFont getDefaultFont(int* points);
    /// Computes the layout anew and, if `apply` is not 0, places everything and repaints. 1 or 0.
    virtual int updateLayout(int apply);
    /// Chains the keyboard focus through all widgets by ascending tab index, if the order is out of date.
    virtual void updateTabOrder();
    /// The control's own widget, null for all other nodes.
    virtual QWidget* getChildWidget();
    /// kNoTabIndex without one.
    virtual int getTabIndex();
    /// Form object to controls, controls to form object, and removal of the controls' properties; for the node and
    /// everything below it.
    virtual void readFormProperty(ScriptObject* form);
    virtual void writeFormProperty(ScriptObject* form);
    virtual void eraseFormProperty(ScriptObject* form);
    virtual void setCurrent();
    /// For the node and everything below it.
    virtual void setUseSystemFont(int use);
    /// The keys: not 0 when the node used the key up.
    virtual int onEnter();
    virtual int onEscape();
    /// What Enter, Escape or script trigger in a control; nothing here.
    virtual void triggerNow();
    /// The node at or below this one that owns the widget, null when there is none.
    virtual guiHtml* findWidget(QWidget* widget);
    virtual guiSizePolicy getSizePolicy() { return m.scrollMode; }
    virtual void setSizePolicy(guiSizePolicy policy);
    /// Pixels, or a negative number of percent.
    virtual int getPreferredWidth();
    /// Height in pixels for a width in pixels.
    virtual int getHeightEstimate(unsigned long width);
    /// The next layer: `count` nodes from entry `first`. `pos` is where to read on, 0 at the start. Every output may be
    /// null. 0 when there is no layer left.
    virtual int findLayer(unsigned* pos, unsigned* first, unsigned* count, int* endsParagraph, guiAlignment* align);
    /// Bottom-up sizes; returns the preferred width as getPreferredWidth() gives it.
    virtual int calcDynamicLayout();
    virtual void updateActiveWidths();
    virtual void updateActiveHeights();
    virtual void updateSpringyHeights();
    virtual void updateScrollbarRanges();
    virtual int getChildHeight(unsigned index, unsigned long width, unsigned long available);
    virtual void paintBorder(QPainter* painter, guiRect* rect, int highlight);
    /// (x, y): origin of the parent's content in widget coordinates. `region` may be null: no clipping.
    virtual void paintTo(QPainter* painter, int x, int y, guiWidget* widget, QRegion const* region);
    virtual void paintCornerTo(QPainter* painter, int x, int y, guiWidget* widget, QRegion const* region);
    virtual void paintChildrenTo(QPainter* painter, int x, int y, guiWidget* widget, QRegion const* region);
    virtual void setCurrentDirectory();
    virtual void createChildWidget();
    /// Destroys the widgets of the node and of everything below it.
    virtual void destroyChildWidget();
    /// The node under a point given relative to the parent's content; rewrites the point relative to the node found.
    virtual guiHtml* hitTest(int* x, int* y);
    virtual int canHitTest();
    virtual void onMouseOn();
    virtual void onMouseOff();
    virtual void onMouseMove(int x, int y);
    virtual void onMouseUp();
    virtual void onMouseDown(int x, int y);
    virtual void onScrollX(int pos);
    virtual void onScrollY(int pos);
    /// Not 0 when a handler took the event or the link was followed.
    virtual int onEvent(sstring name, ScriptObject* object);
    virtual int onHyperlink(sstring link, ScriptObject* object);
    virtual int onHyperlinkAction(sstring& link, sstring& target, ScriptObject* object);
    virtual int onHyperlinkFile(sstring& link, sstring& target);

    // ---- Virtual operations after the slots above ----

    /// The text of a run, with its codes; "" for every other node.
    virtual sstring getRunText() const { return {}; }
    /// Called before the parser appends the child (not owned yet).
    virtual void onAppend(guiHtml*) {}
    /// Replaces the content by a picture or a movie; `path` is the file's full name. 1 or 0.
    virtual int loadPicture(sstring const& path);
    /// Whether the node stays as high as it is when the cell that it stands in grows: vertical alignment then places
    /// it.
    virtual bool keepsHeight() const { return false; }
    /// The distance from the top to the base line of the first line of text, in pixels; none for a node without text of
    /// its own. Valid once the node has its active size.
    virtual std::optional<int> getBaseLine() { return std::nullopt; }
    /// Makes of a value for the form what readFormProperty() reads: a text or null. False: the node has no such value,
    /// and `value` is as it was.
    virtual bool takesFormValue(ScriptValue&) const { return true; }
    /// Whether the node stands in a line of its parent; a menu stands above the page, wherever its tag is.
    virtual bool isInLine() const { return true; }
    /// The user pressed the text of the element's label, or its key. May run script: the node may be gone afterwards.
    virtual void onLabel() {}
    /// Whether the node is a control on a page in a window that has no widget until one is needed: createChildWidget()
    /// makes it.
    virtual bool awaitsWidget() const { return false; }
    /// Shows a part of the page that is put away (guihtmlsheet.h). May run script.
    virtual void bringToFront() {}
    /// Shows the next (1) or previous (-1) of several parts that take turns. False for a node without such. May run
    /// script.
    virtual bool turnParts(int) { return false; }
    /// The radio buttons of which Tab stops at one, where these are kept by their nodes; null for all others.
    virtual guiRadioGroup const* getTabGroup() const { return nullptr; }
    /// Whether Tab stops at this one of its group.
    virtual bool isTabEntry() const { return true; }
    /// The colours or the font of the desktop have changed, or the page is zoomed: what the node has made of them is
    /// out of date. The page is laid out and painted afterwards.
    virtual void onLookChange() {}

    // ---- The links of the node itself, each known by its place: a number that means something to the node alone ----

    static constexpr unsigned kNoLink = 0xFFFFFFFF;

    /// Adds the places of those that lead somewhere and are shown, in the order of reading.
    virtual void findLinks(std::vector<unsigned>&) {}
    /// The place of the link at a point relative to the node; kNoLink without one.
    virtual unsigned getLinkAt(int, int) { return kNoLink; }
    /// Where the link is, relative to the node's corner; empty for a place without a link.
    virtual QPainterPath getLinkOutline(unsigned);
    /// The words of the link, "" for a place without one.
    virtual sstring getLinkText(unsigned) { return {}; }
    /// Does what a click on the link does. Runs script: the node may be gone afterwards.
    virtual void followLinkAt(unsigned) {}

    // ---- The tree ----

    guiHtml* getParent() const { return m.parent; }
    void setParent(guiHtml* parent);
    unsigned getChildCount() const { return m.children.size(); }
    /// The raw entry, a marker or a node (guiChildList::isNode); null past the end.
    guiHtml* getChild(unsigned index) const { return index < getChildCount() ? m.children[index] : nullptr; }
    /// The last entry that is a node, null when there is none.
    guiHtml* getLastChild() const;
    /// Adds the node as the last child and becomes its parent and owner. Returns it.
    guiHtml* append(guiHtml* child);
    void appendMarker(guiMarker marker);
    /// Destroys all children and forgets the markers.
    void destroyChildren();
    /// Number of nodes above this one.
    unsigned getDepth() const;
    /// The same look-ups for constant names.
    guiHtml* getNamed(sstring const& name);
    guiHtml* getBookmarked(sstring const& bookmark);

    // ---- Zoom (guizoom.h) ----

    /// A length in pixels at the node's zoom.
    int scaled(int pixels) const { return m.zoom == kUnzoomed ? pixels : guiZoomedLength(pixels, m.zoom); }
    /// What the node's lengths are when it is not zoomed, null when it is not, or has none.
    guiUnzoomed const* getUnzoomed() const;
    /// Remembers them; none forgets them.
    void setUnzoomed(std::optional<guiUnzoomed> const& lengths);

    // ---- Properties that few nodes have ----

    sstring getString(guiNodeString which) const;
    bool hasString(guiNodeString which) const { return (m.rareParts & (1u << which)) != 0; }
    /// Whether the string has this value; `fold` compares without regard to case. Copies nothing.
    bool isString(guiNodeString which, sstring const& value, bool fold = false) const;
    /// Sets one of the strings; "" removes it.
    void setString(guiNodeString which, sstring const& value);
    /// Counts how often any node was given a file for dynamicLoad() to load: a source or a background.
    static unsigned pendingLoadCount() { return s_pendingLoadCount; }

    guiColor getBorderLight() const;
    guiColor getBorderColor() const;
    guiColor getBorderDark() const;
    /// `given`: bits of guiGivenBorder, the colours that the page gives, as which all unusual ones count. The others
    /// are chosen when they are painted.
    void setBorderColors(guiColor light, guiColor color, guiColor dark, unsigned given = 0);
    /// Bits of guiGivenBorder.
    unsigned getGivenBorders() const;
    guiColor getBackgroundColor() const;
    /// Whether the page gave the node a background colour, or it is a line.
    bool hasBackgroundColor() const;
    void setBackgroundColor(guiColor color);
    /// Makes the node a line, which is filled with that edge colour of what it stands on.
    void setBackgroundEdge(guiEdge edge);
    guiEdge getBackgroundEdge() const;
    int getFontSize() const;
    void setFontSize(int size);
    void setTabIndex(int index);

    /// The loaded background image, null when none is loaded.
    QPixmap const* getBackgroundPixmap() const;
    bool isBackgroundLoaded() const { return getBackgroundPixmap() != nullptr; }
    void setBackgroundPicture(std::shared_ptr<guiPicture const> const& picture);
    void clearBackgroundPicture();

    /// Whether the node has or had scroll bars or a scroll position.
    bool isScrolled() const { return (m.rareParts & kRareScroll) != 0; }
    /// Scroll bars and positions; all 0 for a node that was never scrolled.
    scroll_t const& getScroll() const;
    /// The same for writing; allocated on the first call.
    scroll_t& ensureScroll();
    /// Destroys the scroll bars and goes back to the top left.
    void resetScroll();

    /// Measured size of the caption, set by layout.
    unsigned getCaptionWidth() const;
    unsigned getCaptionHeight() const { return hasString(kStringCaption) ? measuredCaptionHeight() : 0; }
    void setCaptionSize(unsigned width, unsigned height);

    /// The list that every living node is in; null: none. Set by the component before it makes the first node and
    /// cleared after the last one. Not owned. Any thread.
    static void setRegistry(hashlist<guiHtml>* registry);
    /// Whether the node is in the registry: asked before a pointer that arrived with an event is followed. False
    /// without a registry. Any thread.
    static bool isRegistered(guiHtml const* node);
    /// What is told of the end of each node whose `hasListener` is set, before anything of the node is gone; null:
    /// none. GUI thread.
    static void setEndListener(void (*listener)(guiHtml* node)) { s_endListener = listener; }
    /// Changes whenever any node is made or destroyed: while it stays the same, what was found by walking a page is
    /// still valid. Never 0. Any thread.
    static unsigned long generation();

    /// The node's data, open to the classes of the page.
    m_t m;

private:
    static constexpr std::uint16_t kRareScroll = 1u << 15; // the bit of m.rareParts above those of the strings
    static_assert(1u << kStringTitle < kRareScroll, "each string has a bit of its own");

    static inline unsigned s_pendingLoadCount = 0;
    static inline void (*s_endListener)(guiHtml* node) = nullptr;

    rare_t const& rare() const;
    rare_t& ensureRare();
    void storeText(guiNodeString which, sstring const& value);
    void removeText(guiNodeString which);
    void copyFrom(guiHtml const& other);
    void destroyScrollBars();
    unsigned measuredCaptionHeight() const;
    /// Makes the next layout decide again whether the node, or one above it, needs scroll bars.
    void reconsiderScrollBars();
    void takeOverChildren();
    /// `node` is owned: it is destroyed with everything below it.
    static void destroyTree(guiHtml* node);
    static void releaseNodes(guiChildList& list, guiHtml* owner);
};

/// The children of a node without the markers: `for (guiHtml* child : guiNodesOf(parent))`. The parent's list must not
/// change inside the loop.
class guiNodesOf
{
public:
    explicit guiNodesOf(guiHtml const* parent) : m_list(parent->m.children) {}

    class iterator
    {
    public:
        iterator(guiHtml** at, guiHtml** end) : m_at(at), m_end(end) { skipMarkers(); }
        guiHtml* operator*() const { return *m_at; }
        iterator& operator++()
        {
            ++m_at;
            skipMarkers();
            return *this;
        }
        bool operator!=(iterator const& other) const { return m_at != other.m_at; }

    private:
        void skipMarkers()
        {
            while (m_at != m_end && !guiChildList::isNode(*m_at))
                ++m_at;
        }
        guiHtml** m_at;
        guiHtml** m_end;
    };

    iterator begin() const { return {m_list.begin(), m_list.end()}; }
    iterator end() const { return {m_list.end(), m_list.end()}; }

private:
    guiChildList const& m_list;
};

/// Implements Clone() for a class whose operator= copies everything. The caller owns the result; `parent` is not owned.
template <typename Node>
guiHtml* guiCloneNode(Node& node, guiHtml* parent)
{
    auto copy = std::make_unique<Node>();
    guiHtml& target = *copy;
    target = node;
    target.setParent(parent);
    return copy.release();
}

/// Shows all parts around a node that are put away (guihtmlsheet.h); nothing for null. May run script.
void guiReveal(guiHtml* node) TARN_ON(velaGuiRole);
