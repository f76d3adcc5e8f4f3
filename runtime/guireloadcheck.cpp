// runtime/guireloadcheck.cpp: see guireloadcheck.h.
#include "runtime/guireloadcheck.h"

#include "foundation/vela-error.h"
#include "foundation/vela-mlparser.h"
#include "foundation/vela-qt.h"
#include "foundation/vela-textstream.h"
#include "page/guihtmlparser.h"
#include "page/guilinkname.h"
#include "page/guinodewatch.h"
#include "page/guipagehost.h"
#include "runtime/guihtmlbase.h"
#include "runtime/guireloadfiles.h"

#include <QFileInfo>
#include <memory>
#include <vector>

namespace {

QString trimmed(sstring const& message) { return sstoq(message).trimmed(); }

/// Whether any element may load a page: most pages have none, and need no second walk.
bool mayLoad(QStringView text)
{
    auto const isLetter = [](QChar unit, char letter) { return (unit.unicode() | 0x20) == letter; };
    for (qsizetype i = 0; i + 2 < text.size(); ++i)
        if (isLetter(text[i], 's') && isLetter(text[i + 1], 'r') && isLetter(text[i + 2], 'c'))
            return true;
    return false;
}

QString whyUnreadable(sstring const& path)
{
    QFileInfo const file(sstoq(path));
    return file.exists() ? QStringLiteral("can not be read") : QStringLiteral("there is no such file");
}

} // namespace

QString guiReloadCheck::readText(sstring const& path, sstring& text)
{
    guiPageHost& host = guiPageHost::current();
    if (!host.readText(m_root.getPageObject(), path, text))
        return whyUnreadable(path);
    guiNodeWatch const live(&m_root);
    sstring name = path;
    host.filterText(&m_root, name, text);
    if (!live.alive() || m_root.isReleased())
        return QStringLiteral("the window has gone");
    return sstoview(text).trimmed().isEmpty() ? QStringLiteral("the page is empty") : QString();
}

/// The pages that the elements below a section load into themselves.
QString guiReloadCheck::readWithin(sstring const& path, mlSection* section)
{
    std::vector<mlSection*> open{section};
    while (!open.empty()) {
        mlSection* const at = open.back();
        open.pop_back();
        for (unsigned i = 0; mlSection* child = at->getChild(i); ++i)
            if (child->isTag())
                open.push_back(child);
        if (!at->findAttr("src"))
            continue;
        sstring const source = guiHtmlParser::pullAttr(at, "src");
        sstring file;
        sstring bookmark;
        guiSplitBookmark(source, file, bookmark);
        if (file.getLength() == 0 || !guiIsPageFile(file))
            continue;
        sstring const name = guiIsFullName(file) ? file : guiDirectoryOf(path) + file;
        QString problem = read(guiPageHost::current().resolvePath(m_root.getPageObject(), name));
        if (!problem.isEmpty())
            return problem;
    }
    return {};
}

QString guiReloadCheck::parse(sstring const& path, sstring& text)
{
    mlParser markup(std::make_unique<datastream>(text));
    guiHtmlParser const reader(&markup, guiDirectoryOf(path), path); // tells the parser what is not markup
    bool const isWalked = mayLoad(sstoview(text));
    try {
        markup.fullParse();
        for (unsigned i = 0; mlSection* section = isWalked ? markup.getSection(i) : nullptr; ++i)
            if (QString problem = section->isTag() ? readWithin(path, section) : QString(); !problem.isEmpty())
                return problem;
    } catch (mlParseError const& error) {
        return sstoq(path) + QStringLiteral(": ") + trimmed(error.toEnglishString());
    } catch (velaError const& error) {
        return sstoq(path) + QStringLiteral(": ") + trimmed(error.getMessage());
    }
    return {};
}

QString guiReloadCheck::read(sstring const& path)
{
    assertOnGuiThread();
    if (!m_seen.insert(sstoq(path)).second)
        return {};
    sstring text;
    if (QString const problem = readText(path, text); !problem.isEmpty())
        return sstoq(path) + QStringLiteral(": ") + problem;
    guiReloadFiles_keepText(path, text);
    return parse(path, text);
}
