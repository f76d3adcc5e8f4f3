// page/guinodesource.cpp: see guinodesource.h. A source is one of the node's rare attributes: "within", tag, line,
// file, then names and values, with a character between them that no page can hold.
#include "page/guinodesource.h"

#include "foundation/vela-mlsection.h"
#include "foundation/vela-qt.h"
#include "foundation/vela-threadrole.h"
#include "page/guihtml.h"
#include "page/guirareattributes.h"

#include <QStringList>

namespace {

bool areKept = false; // GUI thread

constexpr QChar kBetween(2);
constexpr QChar kFirstThatMayStand(u' ');

enum : qsizetype
{
    kWithin,
    kTag,
    kLine,
    kFile,
    kAttributes
};

QString plain(QString text)
{
    for (QChar& unit : text)
        if (unit < kFirstThatMayStand)
            unit = kFirstThatMayStand;
    return text;
}

QString written(mlSection const& item, bool isWithin, sstring const& file)
{
    QStringList parts{isWithin ? QStringLiteral("1") : QString(), sstoq(item.getName()),
                      QString::number(item.getLine()), plain(sstoq(file))};
    for (unsigned i = 0; mlAttr const* attr = item.getAttr(i); ++i)
        parts << plain(sstoq(attr->getLHS())) << plain(sstoq(attr->getRHS()));
    return parts.join(kBetween);
}

/// Whether a source that says more than the one that the node has, if any, is to take its place.
bool isToBeNoted(guiHtml const* node)
{
    if (!guiHasRareAttribute(node, guiRareAttribute::kSource))
        return true;
    sstring const known = guiRareAttributeOf(node, guiRareAttribute::kSource);
    return known.getLength() != 0 && known[0] == u'1';
}

} // namespace

void guiKeepNodeSources()
{
    assertOnGuiThread();
    areKept = true;
}

bool guiAreNodeSourcesKept() { return areKept; }

void guiNoteNodeSource(guiHtml* parent, unsigned first, mlSection* item, bool isWithin, sstring const& file)
{
    sstring source = sstring::unallocated();
    for (unsigned i = first; i < parent->getChildCount(); ++i) {
        guiHtml* const child = parent->getChild(i);
        if (!guiChildList::isNode(child) || !isToBeNoted(child))
            continue;
        if (source.getLength() == 0)
            source = qtoss(written(*item, isWithin, file));
        guiSetRareAttribute(child, guiRareAttribute::kSource, source);
    }
}

guiNodeSource guiNodeSourceOf(guiHtml const* node)
{
    guiNodeSource source;
    QStringList const parts = sstoq(guiRareAttributeOf(node, guiRareAttribute::kSource)).split(kBetween);
    if (parts.size() < kAttributes)
        return source;
    source.tag = parts[kTag];
    source.line = parts[kLine].toUInt();
    source.file = parts[kFile];
    for (qsizetype i = kAttributes; i + 1 < parts.size(); i += 2)
        source.attributes.emplace_back(parts[i], parts[i + 1]);
    return source;
}
