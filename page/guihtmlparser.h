// page/guihtmlparser.h: builds the nodes of a page from its markup. Block elements become nodes and markers in the
// child lists, character formatting becomes codes in the text runs. guihtmlparser.cpp walks the content, -text.cpp
// writes runs and codes, -prose.cpp reads the elements of prose, -lists.cpp lists, -labels.cpp the text of labels,
// -markers.cpp breaks and alignments, -direction.cpp directions of text, -attributes.cpp reads the attributes that
// elements share, -colors.cpp colours and font sizes, -blocks.cpp tables and rules, -window.cpp the properties of the
// window. The readers of all other elements are beside the nodes that they make, in files that end in -read.cpp, and
// are found through guitagtable.h.
#pragma once

#include "foundation/vela-string.h"
#include "page/guihtml.h"
#include "page/guipagemistakes.h"
#include "page/guispacedtext.h"

#include <QStringView>
#include <initializer_list>
#include <memory>
#include <optional>
#include <typeindex>
#include <utility>
#include <vector>

class guiHtmlText;
class guiPageRoot;
class mlParser;
class mlSection;

/// Data that the readers of one kind of element share while one page is read; see guiHtmlParser::state().
class guiReaderState
{
public:
    virtual ~guiReaderState() = default;
    /// Called when the whole content of the page has been read.
    virtual void finish() = 0;
};

/// Reads one page into one node, in time proportional to the size of the page. GUI thread.
class guiHtmlParser
{
public:
    /// `parser` (not owned) holds the page; relative names in it start from `directory`. `file`: the full name of the
    /// file that the page comes from, which messages name; "" for other text.
    guiHtmlParser(mlParser* parser, sstring const& directory, sstring const& file = sstring());
    ~guiHtmlParser();
    guiHtmlParser(guiHtmlParser const&) = delete;
    guiHtmlParser& operator=(guiHtmlParser const&) = delete;

    // ---- Whole pages ----

    /// Reads the page into a node whose old content is gone: title (of a window), colours, background, alignment,
    /// content, size and (of a window) border. 1, or 0 when the page has neither a body nor an html element or ends in
    /// a syntax error, which is logged; what comes before the error is kept.
    int pullPage(guiHtml* node);
    /// Reads the page into a new window: title, colours, background, alignment, border, the window's sizes, content.
    /// Result as above, but a missing body or html element is left to the caller to log: see hasContent().
    int pullWindow(guiPageRoot* window);
    /// Whether a node that was read names a file for dynamicLoad().
    bool mayLoad() const;
    /// Whether the page had a body or html element.
    bool hasContent() const { return m_hasContent; }
    /// Reads the content of the section into the node, then calls finish() of all reader states. Not inside another
    /// read of the same parser.
    void pullBase(guiHtml* node, mlSection* section);

    // ---- Content ----

    /// Appends what the section contains to `parent`.
    void pullContent(guiHtml* parent, mlSection* section);
    /// The text in a section without tags, with single blanks.
    sstring pullText(mlSection* section);
    /// Whether an element only formats text.
    static bool isFormattingTag(sstring const& name);
    /// Number of open elements, including those around the page's node. A reader that recurses by itself adds its own
    /// levels to this and stops at kMaxNesting.
    unsigned depth() const { return m_depth; }
    /// The link around the element that is read, as guiHtml::onHyperlink() takes it; "" outside of one.
    sstring const& getLink() const { return m_link; }
    /// Text that is read into `parent` from now on is the label of the element that `target` names, until it is "".
    /// Each
    /// "&" in it marks the letter behind it as the label's key; two stand for one.
    void setLabel(guiHtml* parent, sstring const& target);
    /// The key of the label since setLabel(), 0 without one.
    char16_t getLabelKey() const { return m_labelKey; }
    /// Keeps with a node that names a file or a component where it was written, to be told when that is missing.
    /// `names`: the attributes that name one.
    void keepPlace(guiHtml* node, mlSection* section, std::initializer_list<char const*> names = {"src", "background"});
    /// What is wrong in the page, for readers that find something.
    guiPageMistakes& mistakes() { return m_mistakes; }
    /// Logs, once for each page, that elements are nested deeper than kMaxNesting and are flattened. `line`: of the
    /// first.
    void warnOfDepth(unsigned line);
    /// The readers' data of this type; made on the first call.
    template <typename State>
    State& state()
    {
        for (auto const& [kind, known] : m_states)
            if (kind == typeid(State))
                return static_cast<State&>(*known);
        m_states.emplace_back(typeid(State), std::make_unique<State>());
        return static_cast<State&>(*m_states.back().second);
    }

    /// The value of an attribute, compared without regard to case: "" when absent, `bare` when it has no value.
    static sstring pullAttr(mlSection* section, sstring const& name, sstring const& bare);
    static sstring pullAttr(mlSection* section, char const* name, char const* bare = "1");
    /// The same of an attribute that holds the user's own data, in which an empty text is one: "1" only without "=".
    static sstring pullData(mlSection* section, char const* name);
    static bool hasAttr(mlSection* section, char const* name);
    /// What the attribute `dir` says.
    static guiDirection pullDirection(mlSection* section, guiDirection otherwise);
    /// Stores the alignment that `value` names; 0 and nothing stored for any other word.
    static bool readAlignment(sstring const& value, guiAlignment* out);

    /// Appends a new node, which the parent then owns, and passes the parent's text settings on to it. Returns it.
    template <typename Node>
    Node* appendGuiHtml(guiHtml* parent, std::unique_ptr<Node> child)
    {
        Node* appended = child.get();
        appendGuiHtml(parent, static_cast<guiHtml*>(child.release()));
        return appended;
    }
    /// The same; `child` is owned by the parent from then on.
    void appendGuiHtml(guiHtml* parent, guiHtml* child);
    /// Appends a new node in a paragraph of its own, or on the next line after another block.
    template <typename Node>
    Node* appendBlock(guiHtml* parent, std::unique_ptr<Node> block)
    {
        startBlock(parent);
        return appendGuiHtml(parent, std::move(block));
    }
    void appendBlock(guiHtml* parent, guiHtml* block)
    {
        startBlock(parent);
        appendGuiHtml(parent, block);
    }
    void appendParagraph(guiHtml* parent);
    void appendLineBreak(guiHtml* parent);
    void appendAlignment(guiHtml* parent, guiAlignment alignment);
    /// The text run for the next text: the last entry if it is one, else a new one.
    guiHtmlText* findOrCreateText(guiHtml* parent);
    /// The last entry if it is a text run, else null.
    static guiHtmlText* getLastIfText(guiHtml* parent);
    /// Adds a blank at the end, but before opening codes there.
    static void appendSpace(sstring& text);
    guiAlignment getCurrentAlignment(guiHtml* parent);
    void pullLeafAlignment(guiHtml* parent, guiHtml* child);

    // ---- What elements share ----

    static void pullName(guiHtml* node, mlSection* section);
    /// Stores the attribute `name`, if it is given, as one of the node's strings.
    static void pullString(guiHtml* node, mlSection* section, char const* name, guiNodeString which);
    static void pullBorder(guiHtml* node, mlSection* section);
    /// The same of an element around other content: it has room around that and between its lines unless the page says
    /// otherwise.
    static void pullRoomyBorder(guiHtml* node, mlSection* section);
    static void pullMouseEvents(guiHtml* node, mlSection* section);
    static void pullBackground(guiHtml* node, mlSection* section);
    static void pullRestrict(guiHtml* node, mlSection* section);
    static void pullObjectAlignment(guiHtml* node, mlSection* section);
    static void pullDefaultColors(guiHtml* node, mlSection* section);
    static void pullTabIndex(guiHtml* node, mlSection* section);
    /// Makes a requested width or height in pixels the minimum, too.
    static void keepPixelSizes(guiHtml* node);

    // ---- Colours and sizes ----

    /// "#RRGGBB" for a name, any other text unchanged.
    static sstring convColorToHex(sstring const& color);
    /// The colour of a name or of "#" and three or six hexadecimal digits; Black for anything else.
    static guiColor convColorToStruct(sstring const& color);
    /// Whether the text is a colour; stores it in that case.
    static bool readColor(sstring const& color, guiColor* out);
    /// Font size 1 to 7 in points; other numbers count as 1 or 7.
    static int toPointSize(int size);

    // ---- Elements: each reads its attributes and its content into the node given; those that make a node of their own
    // append it to `parent` ----

    void pullFormattingTag(guiHtml* parent, mlSection* section);
    /// Reads the content between a style code, such as "b", and a font code, such as "monospace,8"; each may be "". The
    /// font around it is in force again behind it.
    void pullFormatted(guiHtml* parent, mlSection* section, sstring const& style, sstring const& font);
    /// Content in paragraphs of its own, bold, in a font code's font.
    void pullHeading(guiHtml* parent, mlSection* section, char const* font);
    static void markHeading(guiHtml* parent, unsigned first, mlSection* section);
    void pullOwnParagraph(guiHtml* parent, mlSection* section);
    /// Content in paragraphs one level further to the right.
    void pullQuotedBlock(guiHtml* parent, mlSection* section);
    void pullDiv(guiHtml* parent, mlSection* section);
    void pullContentAndBreak(guiHtml* parent, mlSection* section);
    /// Content with its white space and line ends, which the parser of the markup has kept, in a font code's font.
    void pullSpaced(guiHtml* parent, mlSection* section, char const* font);
    /// Content between two characters, without blanks at them.
    void pullQuoted(guiHtml* parent, mlSection* section, char16_t opening, char16_t closing);
    void pullDivider(guiHtml* parent, mlSection* section);
    /// Text whose direction is its own business, and text that is written in a direction whatever its letters are.
    void pullIsolate(guiHtml* parent, mlSection* section);
    void pullOverride(guiHtml* parent, mlSection* section);
    void pullHyperlink(guiHtml* parent, mlSection* section);
    void pullRule(guiHtml* node, mlSection* section);
    void pullTable(guiHtml* node, mlSection* section);
    void pullTableRow(guiHtml* parent, mlSection* section);
    void pullTableHead(guiHtml* parent, mlSection* section);
    /// `codes`: of the cell's first text.
    void pullTableCell(guiHtml* node, mlSection* section, char const* codes = "");
    /// The attributes of a cell but its sizes, and its content.
    void pullBox(guiHtml* node, mlSection* section, char const* codes = "");
    /// Reads the sizes of the window.
    void pullSizeInfo(guiPageRoot* window, mlSection* section);

private:
    class level;
    friend struct pageTags;

    /// What stands before the items of a list.
    struct listMarks
    {
        enum kind_t
        {
            kNone,
            kDots,
            kNumbers
        };
        kind_t kind = kNone;
        int next = 1; ///< number
    };

    /// Characters around a piece of a line that take no room (Unicode Standard Annex #9, 2.4).
    struct directionMarks
    {
        char16_t opening;
        char16_t closing;
    };

    struct scope
    {
        guiHtml* parent;
        unsigned scanned;  // number of child list entries read
        guiAlignment last; // the alignment after those
    };

    // One element each; the content included.
    bool pullItem(guiHtml* parent, mlSection* item);
    void pullTextItem(guiHtml* parent, mlSection* item);
    void pullUnknown(guiHtml* parent, mlSection* section);
    void pullDirected(guiHtml* parent, mlSection* section, void (*reader)(guiHtmlParser&, guiHtml*, mlSection*),
                      bool isInline);
    void openMarked(guiHtml* parent, mlSection* section, char16_t opening);
    template <typename Read>
    void pullMarked(guiHtml* parent, mlSection* section, directionMarks marks, Read const& read);
    static directionMarks isolateOf(guiDirection direction);
    static directionMarks overrideOf(guiDirection direction);
    guiAlignment alignmentOf(guiHtml* parent, mlSection* section);
    void keepMark(guiHtml* parent, mlSection* section, unsigned before);
    void noteSource(guiHtml* parent, unsigned before, mlSection* item, bool isWithin);
    void pullHeading1(guiHtml* parent, mlSection* section);
    void pullHeading2(guiHtml* parent, mlSection* section);
    void pullHeading3(guiHtml* parent, mlSection* section);
    void pullMenuList(guiHtml* parent, mlSection* section);
    void pullListItem(guiHtml* parent, mlSection* section);
    void pullList(guiHtml* parent, mlSection* section);
    void pullMarkedItem(guiHtml* parent, mlSection* section);
    sstring nextMark();
    void pullParagraph(guiHtml* parent, mlSection* section);
    void pullNothing(guiHtml* parent, mlSection* section);
    void pullRuleTag(guiHtml* parent, mlSection* section);
    void pullTableTag(guiHtml* parent, mlSection* section);
    void pullTableCellTag(guiHtml* parent, mlSection* section);
    void pullTableHeading(guiHtml* parent, mlSection* section);
    void startBlock(guiHtml* parent);
    guiHtmlText* pullBetween(guiHtml* parent, mlSection* section, sstring const& style, sstring const& font);
    void openLink(guiHtml* parent);
    void openLabel(guiHtml* parent);
    void pullLabelText(guiHtml* parent, QStringView text);
    template <typename Step>
    void guarded(Step step);
    void keepError(sstring const& message);
    bool endPage(guiHtml* node);
    mlSection* openPage(guiHtml* node, guiPageRoot* window);
    mlSection* findContent();
    void pullPageDirection(guiHtml* node, mlSection* section);
    void pullTitle(guiPageRoot* window);

    mlParser* m_parser;
    sstring m_directory;
    guiPageMistakes m_mistakes;
    sstring m_link;  // "" outside a hyperlink
    sstring m_label; // "" outside a label
    char16_t m_labelKey = 0;
    sstring m_fontCode;                    // "" outside a font element
    sstring m_fontInForce;                 // the font code that applies to the text that is read, "" without one
    std::optional<guiSpacedText> m_spaced; // none outside of text that keeps its white space
    guiDirection m_direction = guiDirection::kByText;       // of the text that is read
    guiDirection m_directionAround = guiDirection::kByText; // of the text around the innermost element with `dir`
    unsigned m_listDepth = 0;
    listMarks m_marks;            // of the innermost list
    bool m_suppressSpace = false; // set by a line break, cleared by text
    bool m_lastWasBlock = false;  // the item before was a block object
    bool m_hasContent = false;
    unsigned m_loadsBefore; // guiHtml::pendingLoadCount() when the page began
    sstring m_error;        // the first syntax error, "" without one
    bool m_warnedOfDepth = false;
    unsigned m_depth = 0;        // see depth()
    std::vector<scope> m_scopes; // of the nodes that are being filled
    std::vector<std::pair<std::type_index, std::unique_ptr<guiReaderState>>> m_states;
};
