// tests/pages/second/build.cpp: see build.h.
#include "tests/pages/second/build.h"

#include "tests/pages/second/attributes.h"
#include "tests/pages/second/markup.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <algorithm>

namespace second {

namespace {

constexpr int kBrokenPicture = 24;
constexpr int kMostDepth = 16; // of pages inside pages

QString code(QString const& text) { return text.isEmpty() ? QString() : "[[" + text + "]]"; }

QString closing(QString const& text) { return text.isEmpty() || text == "br" ? QString() : code("/" + text); }

/// Pairs of brackets would end the code that a link is written into.
QString withoutPairs(QString link)
{
    if (link.endsWith(']'))
        link = link.chopped(1) + "%5D";
    while (link.contains("]]"))
        link.replace(link.indexOf("]]"), 1, "%5D");
    while (link.contains("[["))
        link.replace(link.indexOf("[["), 1, "%5B");
    return link;
}

/// Reads one page; a page in a frame has a builder of its own.
class builder
{
public:
    builder(QString const& folder, int depth) : m_folder(folder), m_depth(depth) {}

    void pullPage(node* into, element const& page)
    {
        element const* content = page.find("body");
        if (!content)
            content = page.find("html");
        if (!content)
            content = &page;
        readAlignment(into, *content);
        if (into->type == 1)
            readBorder(into, *content);
        pull(into, *content);
        if (into->type != 1)
            readSizes(into, *content);
    }

private:
    node* append(node* parent, int type, leaf kind = noLeaf)
    {
        auto made = std::make_unique<node>();
        node* child = made.get();
        child->type = type;
        child->kind = kind;
        child->parent = parent;
        child->face = m_font.isEmpty() ? parent->face : m_font;
        if (parent->type == 6 && type != 4)
            placeFrame(parent, child);
        parent->children.push_back({std::move(made), 0});
        return child;
    }

    void placeFrame(node* set, node* frame)
    {
        unsigned columns = std::max<unsigned>(1, static_cast<unsigned>(set->columnList.size()));
        if (set->frames && set->frames % columns == 0 && set->children.back().child)
            set->children.push_back({nullptr, lineBreak});
        unsigned column = set->frames % columns;
        unsigned row = set->frames / columns;
        ++set->frames;
        if (column < set->columnList.size())
            std::tie(frame->fixed.unitX, frame->fixed.x) = set->columnList[column];
        if (row < set->rowList.size())
            std::tie(frame->fixed.unitY, frame->fixed.y) = set->rowList[row];
    }

    static bool endsInNode(node* parent)
    {
        return !parent->children.empty() && parent->children.back().child && parent->type != 6;
    }

    /// Whether more than menus stands in the line before an entry.
    static bool hasLine(node* parent, std::size_t before)
    {
        while (before-- > 0 && parent->children[before].child)
            if (parent->children[before].child->kind != menuLeaf)
                return true;
        return false;
    }

    static void breakLine(node* parent)
    {
        if (endsInNode(parent))
            parent->children.push_back({nullptr, lineBreak});
    }

    /// Whether a line ends in a control, a picture or a custom element, or in one with text behind it.
    static bool endsBehindObject(node* parent)
    {
        std::size_t count = parent->children.size();
        if (count && parent->children[count - 1].child && parent->children[count - 1].child->type == 4)
            --count;
        node const* last = count ? parent->children[count - 1].child.get() : nullptr;
        return last && (last->type == 3 || last->type == 5 || last->type == 7) && last->kind != menuLeaf;
    }

    static void breakParagraph(node* parent)
    {
        std::size_t const count = parent->children.size();
        if (count && parent->children.back().mark == lineBreak) {
            if (hasLine(parent, count - 1))
                parent->children.back().mark = paragraph;
        } else if (endsInNode(parent)) {
            parent->children.push_back({nullptr, hasLine(parent, count) ? paragraph : lineBreak});
        }
    }

    static void switchAlignment(node* parent, int from, int to)
    {
        if (from != to)
            parent->children.push_back({nullptr, alignLeft + to});
    }

    static int currentAlignment(node* parent)
    {
        int align = parent->alignX;
        for (entry const& each : parent->children)
            if (each.mark >= alignLeft)
                align = each.mark - alignLeft;
        return align;
    }

    static node* lastText(node* parent)
    {
        node* last = parent->children.empty() ? nullptr : parent->children.back().child.get();
        return last && last->type == 4 ? last : nullptr;
    }

    node* textOf(node* parent)
    {
        if (node* last = lastText(parent))
            return last;
        int align = currentAlignment(parent);
        node* text = append(parent, 4, textLeaf);
        text->alignX = align;
        if (m_depthOfList)
            text->text += QString("[[>%1]]").arg(m_depthOfList);
        if (!m_link.isEmpty())
            text->text += "[[a " + m_link + "]]";
        return text;
    }

    void pullText(node* parent, element const& piece)
    {
        QString& text = textOf(parent)->text;
        if (!text.isEmpty() && piece.leadingSpace && !m_noSpace)
            addBlank(text);
        m_noSpace = false;
        text += piece.text;
    }

    /// A blank goes before the opening codes at the end.
    static void addBlank(QString& text)
    {
        qsizetype at = text.size();
        while (text.size() >= 5 && at >= 4 && QStringView(text).left(at).endsWith(u"]]")) {
            qsizetype start = text.lastIndexOf("[[", at - 3);
            if (start < 0 || text.mid(start, 3) == "[[/" || text.mid(start, at - start - 2).contains("]]"))
                break;
            at = start;
        }
        text.insert(at, ' ');
    }

    void pullFormat(node* parent, element const& tag)
    {
        QString style, face;
        QString outer = m_font;
        if (tag.name == "br") {
            style = "br";
            m_noSpace = true;
            if (endsBehindObject(parent))
                return breakLine(parent);
        } else if (tag.name == "sup") {
            style = "b";
            face = ",8";
        } else if (tag.name == "b" || tag.name == "strong") {
            style = "b";
        } else if (tag.name == "u") {
            style = "u";
        } else if (tag.name == "font") {
            static int const points[] = {8, 10, 12, 14, 18, 24, 36};
            style = hexOf(tag.get("color"));
            face = tag.get("face");
            if (!tag.get("size").isEmpty())
                face += QString(",%1").arg(points[std::clamp(number(tag.get("size")), 1, 7) - 1]);
            if (!face.isEmpty())
                m_font = face;
        } else {
            style = "i";
        }
        node* run = style.isEmpty() && face.isEmpty() ? nullptr : textOf(parent);
        if (run)
            run->text += code(style) + code(face);
        pull(parent, tag);
        if (run && lastText(parent) == run)
            run->text += closing(face) + closing(style);
        m_font = outer;
    }

    void pullLink(node* parent, element const& tag)
    {
        m_link = tag.get("href");
        if (!tag.get("target").isEmpty())
            m_link = "{" + tag.get("target") + "}" + m_link;
        m_link = withoutPairs(m_link);
        if (node* text = lastText(parent))
            text->text += "[[a " + m_link + "]]";
        pull(parent, tag);
        if (node* text = lastText(parent))
            text->text += "[[/a]]";
        m_link.clear();
    }

    void pullHeading(node* parent, element const& tag, char const* codes)
    {
        breakParagraph(parent);
        textOf(parent)->text += codes;
        pull(parent, tag);
        breakParagraph(parent);
    }

    void pullMenuList(node* parent, element const& tag)
    {
        ++m_depthOfList == 1 ? breakParagraph(parent) : breakLine(parent);
        pull(parent, tag);
        --m_depthOfList ? breakLine(parent) : breakParagraph(parent);
    }

    void pullItem(node* parent, element const& tag, bool indents)
    {
        int outer = m_depthOfList;
        if (indents && outer == 0)
            m_depthOfList = 1;
        breakParagraph(parent);
        pull(parent, tag);
        breakParagraph(parent);
        m_depthOfList = outer;
    }

    void pullDivider(node* parent, element const& tag)
    {
        int outer = currentAlignment(parent);
        int own = alignmentOf(tag, outer);
        switchAlignment(parent, outer, own);
        pull(parent, tag);
        switchAlignment(parent, own, outer);
    }

    void pullRule(node* parent, element const& tag)
    {
        int outer = currentAlignment(parent);
        int own = alignmentOf(tag, outer);
        breakParagraph(parent);
        switchAlignment(parent, outer, own);
        node* rule = append(parent, 0);
        rule->fixed.unitX = percent;
        rule->fixed.x = 100;
        readLength(tag.get("width"), &rule->fixed.unitX, &rule->fixed.x);
        rule->fixed.unitY = pixels;
        rule->fixed.y = rule->fixed.minY = tag.has("size") ? pixelCount(tag.get("size")) : 2;
        rule->alignY = 2;
        readName(rule, tag);
        bool isFlat = !tag.get("color").isEmpty() || tag.has("noshade");
        if (!isFlat && rule->fixed.y >= 2) { // its lower half is light
            node* half = append(rule, 0);
            half->fixed.unitX = percent;
            half->fixed.x = 100;
            half->fixed.unitY = pixels;
            half->fixed.y = half->fixed.minY = rule->fixed.y / 2;
        }
        breakParagraph(parent);
        switchAlignment(parent, own, outer);
    }

    void loadInto(node* into, element const& tag)
    {
        QString source = tag.get("src");
        QString file = m_folder + "/" + source;
        QFile page(file);
        if (source.isEmpty() || m_depth == kMostDepth)
            return;
        into->children.clear(); // also when there is no such file
        if (!page.open(QIODevice::ReadOnly))
            return;
        auto markup = readMarkup("<html>" + QString::fromUtf8(page.readAll()) + "</html>");
        builder(QFileInfo(file).path(), m_depth + 1).pullPage(into, *markup);
    }

    node* appendBlock(node* parent, int type)
    {
        m_lastWasBlock ? breakLine(parent) : breakParagraph(parent);
        return append(parent, type);
    }

    void pullTable(node* parent, element const& tag)
    {
        node* table = appendBlock(parent, 0);
        table->expandChildren = true;
        table->caption = tag.data("caption");
        readSizes(table, tag);
        keepSizes(table);
        readBorder(table, tag);
        readName(table, tag);
        pull(table, tag);
        loadInto(table, tag);
        breakLine(parent);
    }

    void pullBox(node* box, element const& tag)
    {
        readAlignment(box, tag);
        readSizes(box, tag);
        readBorder(box, tag);
        readName(box, tag);
        pull(box, tag);
        loadInto(box, tag);
    }

    static std::vector<std::pair<unit, int>> readTracks(QString const& list)
    {
        std::vector<std::pair<unit, int>> tracks;
        for (QString const& part : list.split(',', Qt::SkipEmptyParts)) {
            tracks.emplace_back(unbound, 0);
            if (!part.contains('*'))
                readLength(part, &tracks.back().first, &tracks.back().second);
        }
        return tracks;
    }

    void pullFrameset(node* parent, element const& tag)
    {
        node* set = append(parent, 6);
        set->columnList = readTracks(tag.get("cols"));
        set->rowList = readTracks(tag.get("rows"));
        set->expandChildren = true;
        readSizes(set, tag);
        keepSizes(set);
        readBorder(set, tag);
        readName(set, tag);
        if (parent->type != 6 && set->fixed.unitX == unbound)
            std::tie(set->fixed.unitX, set->fixed.x) = std::pair(percent, 100);
        if (parent->type != 6 && set->fixed.unitY == unbound)
            std::tie(set->fixed.unitY, set->fixed.y) = std::pair(percent, 100);
        pull(set, tag);
    }

    void pullFrame(node* parent, element const& tag)
    {
        node* frame = append(parent, 0);
        readSizes(frame, tag);
        keepSizes(frame);
        readBorder(frame, tag);
        readName(frame, tag);
        frame->alignY = 0;
        loadInto(frame, tag);
    }

    void readPicture(node* picture, element const& tag)
    {
        readName(picture, tag);
        readAlignment(picture, tag);
        readSizes(picture, tag);
        readBorder(picture, tag);
        QSize size = sizeOf(tag.get("src"));
        picture->isMissing = size.isNull();
        if (picture->isMissing && !isSilent(tag.get("src")))
            size = QSize(kBrokenPicture, kBrokenPicture);
        picture->columns = size.width();
        picture->rows = size.height();
    }

    /// Nothing is shown for it, not even that it is missing.
    static bool isSilent(QString const& source)
    {
        return source.isEmpty() || source.endsWith(".wav") || source.endsWith(".avi") || source.endsWith(".avz");
    }

    QSize sizeOf(QString const& source) const
    {
        QString file = m_folder + "/" + source;
        if (source.isEmpty() || source.endsWith(".wav"))
            return QSize(0, 0);
        if (source.endsWith(".avi") || source.endsWith(".avz"))
            return movieSize(file);
        return QImage(file).size();
    }

    /// Of the first frame: an AVI tells in its header, 64 bytes in; an AVZ holds a picture file behind 24 bytes.
    static QSize movieSize(QString const& name)
    {
        QFile file(name);
        if (!file.open(QIODevice::ReadOnly))
            return QSize(0, 0);
        QByteArray bytes = file.readAll();
        auto number = [&](qsizetype at) { return static_cast<unsigned char>(bytes[at]) + 256 * bytes[at + 1]; };
        if (name.endsWith(".avi"))
            return QSize(number(64), number(68));
        return QImage::fromData(bytes.mid(24)).size();
    }

    void pullImage(node* parent, element const& tag)
    {
        breakLine(parent);
        readPicture(append(parent, 3, pictureLeaf), tag);
        breakLine(parent);
    }

    node* appendControl(node* parent, element const& tag, leaf kind, int type = 5)
    {
        node* control = append(parent, type, kind);
        readName(control, tag);
        if (kind != hiddenLeaf)
            readSizes(control, tag);
        return control;
    }

    static int countOr(QString const& text, int otherwise)
    {
        int count = pixelCount(text);
        return count ? count : otherwise;
    }

    void pullInput(node* parent, element const& tag)
    {
        QString type = tag.get("type");
        if (isWord(type, {"button", "submit", "reset"})) {
            appendControl(parent, tag, pushLeaf)->label = tag.data("value");
        } else if (isWord(type, {"checkbox", "radio"})) {
            appendControl(parent, tag, markLeaf);
        } else if (isWord(type, {"text", "file", "password"})) {
            node* edit = appendControl(parent, tag, editLeaf);
            edit->columns = countOr(tag.get("size"), 20);
            edit->rows = 1;
        } else if (isWord(type, {"hidden"})) {
            appendControl(parent, tag, hiddenLeaf);
        } else if (isWord(type, {"image"})) {
            readPicture(append(parent, 3, pictureLeaf), tag);
        }
    }

    void pullTextArea(node* parent, element const& tag)
    {
        node* edit = appendControl(parent, tag, editLeaf);
        edit->columns = countOr(tag.get("cols"), 20);
        edit->rows = countOr(tag.get("rows"), 2);
    }

    static QString ownText(element const& of)
    {
        QString own;
        for (auto const& piece : of.children)
            if (piece->isText)
                own += (piece->leadingSpace && !own.isEmpty() ? " " : "") + piece->text;
        return own;
    }

    static void collectOptions(element const& of, QStringList* labels)
    {
        for (auto const& child : of.children) {
            if (child->name == "option") {
                QString own = ownText(*child);
                labels->append(own.isEmpty() ? child->data("value") : own);
            }
            collectOptions(*child, labels);
        }
    }

    static void keepLonger(QStringList* columns, int column, QString const& text)
    {
        while (columns->size() <= column)
            columns->append(QString());
        if (text.size() > columns->at(column).size())
            (*columns)[column] = text;
    }

    /// The longest text of each column.
    static void collectRows(element const& of, QStringList* columns)
    {
        for (auto const& row : of.children) {
            if (isWord(row->name, {"option", "param"})) {
                bool isNamed = row->name == "param" && !row->has("text1") && !row->has("text");
                QString first = row->has("text1") ? row->data("text1") : row->data("text");
                if (first.isEmpty() && !isNamed)
                    first = ownText(*row);
                keepLonger(columns, 0, first.isEmpty() ? row->data("value") : first);
                for (int i = 2; row->has(qPrintable(QString("text%1").arg(i))); ++i)
                    keepLonger(columns, i - 1, row->get(qPrintable(QString("text%1").arg(i))));
            }
            collectRows(*row, columns);
        }
    }

    void pullSelect(node* parent, element const& tag)
    {
        node* list = appendControl(parent, tag, listLeaf);
        list->rows = tag.has("size") ? pixelCount(tag.get("size")) : 1;
        collectOptions(tag, &list->labels);
    }

    void pullObject(node* parent, element const& tag)
    {
        QString kind = tag.get("classid");
        if (isWord(kind, {"menu"})) {
            appendControl(parent, tag, menuLeaf);
        } else if (isWord(kind, {"flexlist", "checklist", "listview", "treeview"})) {
            node* list = appendControl(parent, tag, flexLeaf);
            list->rows = countOr(tag.get("size"), 5);
            list->hasHeader = isWord(kind, {"flexlist", "listview"});
            collectRows(tag, &list->labels);
        } else {
            node* custom = appendControl(parent, tag, noLeaf, 7);
            readAlignment(custom, tag);
            readBorder(custom, tag);
        }
    }

    /// The node of a role that a part of it is read into; null for a part that stands elsewhere.
    static node* containerOf(node* parent, container role)
    {
        if (parent->role == role)
            return parent;
        return parent->parent && parent->parent->role == role && parent->type == 0 ? parent->parent : nullptr;
    }

    void pullTabs(node* parent, element const& tag)
    {
        node* tabs = appendBlock(parent, 0);
        tabs->role = tabsContainer;
        tabs->expandChildren = true;
        tabs->alignY = 0;
        readSizes(tabs, tag);
        keepSizes(tabs);
        node* bar = append(tabs, 5, barLeaf);
        readName(bar, tag);
        pull(tabs, tag);
        chooseTab(tabs, tag.data("value"));
        breakLine(parent);
    }

    static void chooseTab(node* tabs, QString const& wanted)
    {
        std::vector<node*> sheets;
        for (entry const& each : tabs->children)
            if (each.child && each.child->role == sheetContainer)
                sheets.push_back(each.child.get());
        std::size_t shown = 0;
        for (std::size_t i = 0; i < sheets.size(); ++i)
            if (!wanted.isEmpty() && wanted == (sheets[i]->name.isEmpty() ? QString::number(i) : sheets[i]->name))
                shown = i;
        for (std::size_t i = 0; i < sheets.size(); ++i)
            sheets[i]->isAway = i != shown;
    }

    void pullTab(node* parent, element const& tag)
    {
        node* tabs = containerOf(parent, tabsContainer);
        if (!tabs)
            return pull(parent, tag);
        tabs->children.front().child->labels.append(tag.data("title"));
        breakLine(tabs);
        node* sheet = append(tabs, 0);
        sheet->role = sheetContainer;
        std::tie(sheet->fixed.unitY, sheet->fixed.y) = std::pair(percent, 100);
        sheet->alignY = 0;
        readName(sheet, tag);
        readAlignment(sheet, tag);
        readBorder(sheet, tag);
        sheet->border = 2;
        spaceOf(sheet);
        pull(sheet, tag);
        loadInto(sheet, tag);
    }

    static void spaceOf(node* sheet)
    {
        if (sheet->divide == 0)
            sheet->space = sheet->divide = 8;
    }

    void pullDetails(node* parent, element const& tag)
    {
        node* details = appendBlock(parent, 0);
        details->expandChildren = true;
        details->alignY = 0;
        node* line = appendControl(details, tag, summaryLeaf);
        line->label = "Details";
        breakLine(details);
        node* indent = append(details, 0);
        indent->fixed.unitX = indent->fixed.unitY = pixels;
        indent->fixed.x = indent->fixed.minX = 14;
        node* sheet = append(details, 0);
        sheet->role = foldedContainer;
        sheet->alignY = 0;
        sheet->isAway = !tag.has("open");
        readBorder(sheet, tag);
        spaceOf(sheet);
        pull(sheet, tag);
        breakLine(parent);
    }

    void pullSummary(node* parent, element const& tag)
    {
        if (parent->role != foldedContainer)
            return pull(parent, tag);
        parent->parent->children.front().child->label = ownText(tag);
    }

    void pullSplitter(node* parent, element const& tag)
    {
        node* splitter = appendBlock(parent, 5);
        splitter->role = splitContainer;
        splitter->isStacked = tag.has("vertical");
        splitter->expandChildren = true;
        splitter->alignY = 0;
        readSizes(splitter, tag);
        keepSizes(splitter);
        readName(splitter, tag);
        if (splitter->fixed.unitX == unbound)
            std::tie(splitter->fixed.unitX, splitter->fixed.x) = std::pair(percent, 100);
        if (splitter->fixed.unitY == unbound)
            std::tie(splitter->fixed.unitY, splitter->fixed.y) = std::pair(percent, 100);
        pull(splitter, tag);
        breakLine(parent);
    }

    node* appendPart(node* splitter, int type, leaf kind)
    {
        if (splitter->isStacked)
            breakLine(splitter);
        node* part = append(splitter, type, kind);
        if (!splitter->isStacked || kind == noLeaf)
            std::tie(part->fixed.unitY, part->fixed.y) = std::pair(percent, 100);
        return part;
    }

    void appendDivider(node* splitter)
    {
        constexpr int kThickness = 7;
        node* divider = appendPart(splitter, 5, dividerLeaf);
        bool down = splitter->isStacked;
        (down ? divider->fixed.unitY : divider->fixed.unitX) = pixels;
        (down ? divider->fixed.y : divider->fixed.x) = kThickness;
        (down ? divider->fixed.minY : divider->fixed.minX) = kThickness;
    }

    void pullPane(node* parent, element const& tag)
    {
        node* splitter = containerOf(parent, splitContainer);
        if (!splitter)
            return pull(parent, tag);
        if (!splitter->children.empty())
            appendDivider(splitter);
        node* pane = appendPart(splitter, 0, noLeaf);
        splitter->columnList.emplace_back(unbound, 0);
        auto& [which, size] = splitter->columnList.back();
        readLength(tag.get(splitter->isStacked ? "height" : "width"), &which, &size);
        pane->fixed.minX = pixelCount(tag.get("minwidth"));
        pane->fixed.minY = pixelCount(tag.get("minheight"));
        pane->scrollMode = 0;
        pane->alignY = 0;
        readAlignment(pane, tag);
        int outer = pane->scrollMode;
        readBorder(pane, tag);
        if (!tag.has("scrolling"))
            pane->scrollMode = outer;
        readName(pane, tag);
        pull(pane, tag);
        loadInto(pane, tag);
    }

    void pull(node* parent, element const& section)
    {
        bool outer = m_lastWasBlock;
        m_lastWasBlock = false;
        pullInto(parent, section);
        m_lastWasBlock = outer;
    }

    /// What stands in a tag that is never closed stands behind it.
    void pullInto(node* parent, element const& section)
    {
        for (auto const& child : section.children) {
            m_lastWasBlock = pullChild(parent, *child);
            if (isWord(child->name, {"hr", "img", "input", "frame"}))
                pullInto(parent, *child);
        }
    }

    /// Whether the child is a block object to the table that comes next.
    bool pullChild(node* parent, element const& tag)
    {
        QString const& name = tag.name;
        if (tag.isText) {
            pullText(parent, tag);
        } else if (isWord(name, {"sup", "font", "br", "strong", "em", "b", "u", "cite", "i", "var"})) {
            pullFormat(parent, tag);
        } else if (isWord(name, {"h1", "h2", "h3"})) {
            pullHeading(parent, tag, name == "h1" ? "[[b]][[,24]]" : name == "h2" ? "[[b]][[,18]]" : "[[b]][[,14]]");
        } else if (name == "menu") {
            pullMenuList(parent, tag);
        } else if (isWord(name, {"dd", "ol", "ul", "li", "dt"})) {
            pullItem(parent, tag, name != "dt");
        } else if (name == "p") {
            breakParagraph(parent);
            pullDivider(parent, tag);
            breakParagraph(parent);
        } else if (name == "div") {
            breakLine(parent);
            pullDivider(parent, tag);
            breakLine(parent);
        } else if (name == "hr") {
            pullRule(parent, tag);
        } else if (name == "tr") {
            breakLine(parent);
            pull(parent, tag);
        } else if (name == "td") {
            pullBox(append(parent, 0), tag);
        } else if (name == "form") {
            pullBox(appendBlock(parent, 2), tag);
        } else if (name == "input") {
            pullInput(parent, tag);
        } else if (name == "textarea") {
            pullTextArea(parent, tag);
        } else if (name == "select") {
            pullSelect(parent, tag);
        } else if (isWord(name, {"center", "tbody"})) {
            pull(parent, tag);
            breakLine(parent);
        } else if (name == "a") {
            pullLink(parent, tag);
        } else if (name == "summary") {
            pullSummary(parent, tag);
        } else if (isWord(name, {"html", "body", "doctype", "messages", "dl"})) {
            pull(parent, tag);
        } else if (!isWord(name, {"noframe", "head", "title", "map"})) {
            pullBlockObject(parent, tag);
            return true;
        }
        return false;
    }

    void pullBlockObject(node* parent, element const& tag)
    {
        if (tag.name == "table")
            pullTable(parent, tag);
        else if (tag.name == "img")
            pullImage(parent, tag);
        else if (tag.name == "frameset")
            pullFrameset(parent, tag);
        else if (tag.name == "frame")
            pullFrame(parent, tag);
        else if (tag.name == "object")
            pullObject(parent, tag);
        else if (tag.name == "tabs")
            pullTabs(parent, tag);
        else if (tag.name == "tab")
            pullTab(parent, tag);
        else if (tag.name == "splitter")
            pullSplitter(parent, tag);
        else if (tag.name == "pane")
            pullPane(parent, tag);
        else if (tag.name == "details")
            pullDetails(parent, tag);
        else
            pull(parent, tag);
    }

    QString m_folder;
    int m_depth;
    QString m_link;
    QString m_font; ///< code of the font elements around
    int m_depthOfList = 0;
    bool m_noSpace = false;
    bool m_lastWasBlock = false;
};

} // namespace

std::unique_ptr<node> buildPage(QString const& name)
{
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly))
        return nullptr;
    auto root = std::make_unique<node>();
    root->type = 1;
    auto markup = readMarkup(QString::fromUtf8(file.readAll()));
    builder(QFileInfo(name).absolutePath(), 0).pullPage(root.get(), *markup);
    return root;
}

} // namespace second
