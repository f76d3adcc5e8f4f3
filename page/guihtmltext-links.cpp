// page/guihtmltext-links.cpp: the links of a text run: what the mouse does to them, and each of them by itself.
#include "page/guihtmltext.h"

#include "foundation/vela-qt.h"
#include "foundation/vela-threadrole.h"
#include "page/guihtmltext-codes.h"
#include "page/guitextcopy.h"
#include "page/guiuserevent.h"

#include <QPainterPath>
#include <QWidget>
#include <optional>

namespace {

constexpr qsizetype kCodeStart = 4; // "[[a " or "[[l "

/// What stands in the code at that position of a text; none when there is no whole code.
std::optional<sstring> targetIn(QStringView text, qsizetype at)
{
    qsizetype const start = at + kCodeStart;
    qsizetype const end = text.indexOf(QStringView(u"]]"), start);
    bool const isCode = end >= start && text.mid(at).startsWith(QStringView(u"[["));
    return isCode ? std::optional(qtoss(text.mid(start, end - start).toString())) : std::nullopt;
}

bool isLabelAt(QStringView text, qsizetype at) { return text.mid(at).startsWith(QStringView(u"[[l ")); }

/// Does what pressing a label does to its element, which is of that name, or behind a "#" of that bookmark. Runs
/// script.
void actOnLabel(guiHtml* page, sstring const& target)
{
    bool const isBookmark = target.getLength() != 0 && target[0] == '#';
    if (guiHtml* node = isBookmark ? page->getBookmarked(target) : page->getNamed(target))
        node->onLabel();
}

guiHtml* topOf(guiHtml* node)
{
    while (node->getParent())
        node = node->getParent();
    return node;
}

} // namespace

unsigned guiHtmlText::linkAt(int x, int y) const
{
    for (guiHotspot const& spot : mx.hotspots)
        if (x >= spot.left && x < spot.left + spot.width && y >= spot.top && y < spot.top + spot.height)
            return spot.link;
    return kNoLink;
}

QString guiHtmlText::getLinkText(int x, int y)
{
    unsigned const link = linkAt(x, y);
    return isFollowed(link) ? guiTextOfLink(*this, link) : QString();
}

int guiHtmlText::canHitTest() { return !mx.hotspots.empty() || guiHtml::canHitTest(); }

void guiHtmlText::setPointer(bool onLink)
{
    if (QWidget* widget = getTopLevelWidget())
        widget->setCursor(onLink ? Qt::PointingHandCursor : Qt::ArrowCursor);
}

// The pointer's shape changes only between link and no link.
void guiHtmlText::onMouseMove(int x, int y)
{
    assertOnGuiThread();
    unsigned const link = linkAt(x, y);
    if (link == mx.hoveredLink)
        return;
    bool const wasOnLink = isFollowed(mx.hoveredLink);
    if (wasOnLink != isFollowed(link))
        setPointer(!wasOnLink);
    mx.hoveredLink = link;
    update();
}

void guiHtmlText::onMouseOff()
{
    assertOnGuiThread();
    if (mx.hoveredLink != kNoLink) {
        if (isFollowed(mx.hoveredLink))
            setPointer(false);
        mx.hoveredLink = kNoLink;
        update();
    }
    guiHtml::onMouseOff();
}

/// Whether there is a link at the position, and no label.
bool guiHtmlText::isFollowed(unsigned link) const { return link != kNoLink && !isLabelAt(mx.text.view(), link); }

// A run follows its link and fires no mouse-down event.
void guiHtmlText::onMouseDown(int, int)
{
    assertOnGuiThread();
    if (mx.hoveredLink == kNoLink)
        return;
    if (isFollowed(mx.hoveredLink))
        return followLinkAt(mx.hoveredLink);
    guiEventNote const note("click");
    if (std::optional<sstring> const target = targetIn(mx.text.view(), mx.hoveredLink))
        actOnLabel(topOf(this), *target);
}

// ---- One by one ----

/// Whether the link leads somewhere; a bookmark has a code, too.
bool guiHtmlText::leadsOn(unsigned link) const
{
    std::optional<sstring> const target = isFollowed(link) ? targetIn(mx.text.view(), link) : std::nullopt;
    return target && target->getLength() != 0;
}

// The pieces of one link follow each other.
void guiHtmlText::findLinks(std::vector<unsigned>& places)
{
    unsigned last = kNoLink;
    for (guiHotspot const& spot : mx.hotspots)
        if (spot.link != last && leadsOn(last = spot.link))
            places.push_back(spot.link);
}

unsigned guiHtmlText::getLinkAt(int x, int y)
{
    unsigned const link = linkAt(x, y);
    return leadsOn(link) ? link : kNoLink;
}

QPainterPath guiHtmlText::getLinkOutline(unsigned place)
{
    QPainterPath outline;
    for (guiHotspot const& spot : mx.hotspots)
        if (spot.link == place)
            outline.addRect(spot.left, spot.top, spot.width, spot.height);
    return outline;
}

sstring guiHtmlText::getLinkText(unsigned place)
{
    QStringView const text = mx.text.view();
    if (!leadsOn(place))
        return {};
    QString words;
    guiTextScanner scanner(text.mid(place));
    scanner.next(); // the link's own code
    while (scanner.next()) {
        guiTextCode const code = scanner.isCode() ? guiReadTextCode(scanner.part()) : guiTextCode::kBold;
        if (code == guiTextCode::kLink || code == guiTextCode::kEndLink)
            break;
        if (!scanner.isCode())
            words += scanner.part();
        else if (code == guiTextCode::kLineBreak)
            words += u' ';
    }
    return qtoss(words.simplified());
}

sstring guiHtmlText::getLinkTarget(unsigned place) const
{
    std::optional<sstring> const target = isFollowed(place) ? targetIn(mx.text.view(), place) : std::nullopt;
    return target ? *target : sstring();
}

void guiHtmlText::followLinkAt(unsigned place)
{
    assertOnGuiThread();
    guiEventNote const note("click");
    std::optional<sstring> const target = isFollowed(place) ? targetIn(mx.text.view(), place) : std::nullopt;
    if (target)
        onHyperlink(*target, nullptr);
}

// ---- Titles ----

// The titles of a run are lines: a link, a tab, and its title. Few links have one.
void guiHtmlText::addLinkTitle(sstring const& link, sstring const& title)
{
    setString(kStringTitle, getString(kStringTitle) + link + "\t" + qtoss(sstoq(title).replace(u'\n', u' ')) + "\n");
}

sstring guiHtmlText::getTitleAt(int x, int y) const
{
    unsigned const link = hasString(kStringTitle) ? linkAt(x, y) : kNoLink;
    std::optional<sstring> const target = link != kNoLink ? targetIn(mx.text.view(), link) : std::nullopt;
    if (!target)
        return {};
    QString const start = sstoq(*target) + u'\t';
    for (QString const& line : sstoq(getString(kStringTitle)).split(u'\n'))
        if (line.startsWith(start))
            return qtoss(line.mid(start.size()));
    return {};
}
