// runtime/guireload.cpp: see guireload.h.
#include "runtime/guireload.h"

#include "controls/guihtmlimage.h"
#include "controls/guiwidget.h"
#include "foundation/vela-qt.h"
#include "foundation/vela-threadrole.h"
#include "page/guilayouthold.h"
#include "page/guilinkname.h"
#include "page/guinodewatch.h"
#include "runtime/gui.h"
#include "runtime/guihtmlbase.h"
#include "runtime/guikeptfocus.h"
#include "runtime/guikeptpage.h"
#include "runtime/guipagewatcher.h"
#include "runtime/guipostlast.h"
#include "runtime/guiproblemstrip.h"
#include "runtime/guireloadcheck.h"
#include "runtime/guireloadfiles.h"
#include "runtime/guithread.h"
#include "runtime/guiwindowplaces.h"

#include <QApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>
#include <list>
#include <utility>
#include <vector>

namespace {

bool isShowing = false; // GUI thread

class showingScope
{
public:
    showingScope() : m_wasShowing(std::exchange(isShowing, true)) {}
    ~showingScope() { isShowing = m_wasShowing; }
    showingScope(showingScope const&) = delete;
    showingScope& operator=(showingScope const&) = delete;

private:
    bool m_wasShowing;
};

class reloadWatcher final : public guiPageWatcher
{
public:
    void onFile(ScriptObject* window, sstring const& path) override { guiReloadFiles_note(window, path); }
    void onWindowGone(ScriptObject* window) override { guiReloadFiles_forget(window); }
    void onContent(guiHtmlBase& root, guiHtml* node) override TARN_ON(velaGuiRole) { guiGiven_note(root, node); }
    void onText(guiHtmlBase& root, std::optional<sstring> const& text, sstring const& directory) override
        TARN_ON(velaGuiRole)
    {
        guiGiven_noteText(root, text, directory);
    }
    void onOpen(guiHtmlBase& root, guiWidget& window) override TARN_ON(velaGuiRole)
    {
        guiWindowPlaces_take(root, window);
    }
    guiSaid& said(guiHtml* node) override TARN_ON(velaGuiRole) { return guiGiven_said(node); }
    bool isShowing() const override { return ::isShowing; }
    std::optional<sstring> textOf(sstring const& path) override TARN_ON(velaGuiRole)
    {
        return guiReloadFiles_textOf(path);
    }
    bool hasText(sstring const& path) override TARN_ON(velaGuiRole) { return guiReloadFiles_hasText(path); }
};

/// The files that a page shows which was read before anybody watched.
void noteFiles(ScriptObject* window, guiHtml* node)
{
    if (node->hasString(kStringFile))
        guiReloadFiles_note(window, node->getString(kStringFile));
    if (node->hasString(kStringBackground))
        guiReloadFiles_note(window, guiFullName(node, node->getString(kStringBackground)));
    if (auto const* image = dynamic_cast<guiHtmlImage*>(node))
        guiReloadFiles_note(window, guiFullName(node, image->getSource()));
    for (guiHtml* child : guiNodesOf(node))
        noteFiles(window, child);
}

/// What is read anew: whole nodes, each from its file.
using targetList = std::vector<guiHtml*>;

QSet<QString> filesIn(QJsonObject const& asked)
{
    QSet<QString> files;
    for (QJsonValue const each : asked["files"].toArray())
        files.insert(each.toString());
    return files;
}

/// The topmost nodes whose content came from one of the files, and which of the files these are.
void findTargets(guiHtml* node, QSet<QString> const& files, targetList& targets, QSet<QString>& found)
{
    QString const file = node->hasString(kStringFile) ? sstoq(node->getString(kStringFile)) : QString();
    if (!file.isEmpty() && files.contains(file)) {
        targets.push_back(node);
        found.insert(file);
        return;
    }
    for (guiHtml* child : guiNodesOf(node))
        findTargets(child, files, targets, found);
}

/// A file that is no page in a part of the window, but a picture, say, has the whole page read anew.
targetList targetsOf(guiHtmlBase& root, QSet<QString> const& files)
{
    targetList targets;
    QSet<QString> found;
    findTargets(&root, files, targets, found);
    return found.size() == files.size() && !targets.empty() ? targets : targetList{&root};
}

std::optional<sstring> textOf(guiHtmlBase& root) TARN_ON(velaGuiRole)
{
    guiGivenPage const* const page = guiGiven_pageOf(root);
    return page ? page->text : std::nullopt;
}

/// Whether the user or script is in the middle of something that the page has to outlive.
bool isBusy() TARN_ON(velaGuiRole)
{
    return pGUI->getThread()->isInputBlocked() || QApplication::mouseButtons() != Qt::NoButton ||
           QApplication::activePopupWidget();
}

// ---- Requests about a window ----

QJsonObject check(guiHtmlBase& root, QJsonObject const& asked) TARN_ON(velaGuiRole)
{
    if (isBusy())
        return {{"isBusy", true}};
    guiReloadFiles_forgetTexts();
    guiNodeWatch const live(&root);
    guiReloadCheck reader(root);
    std::vector<sstring> paths;
    for (guiHtml* node : targetsOf(root, filesIn(asked)))
        if (node != &root || !textOf(root))
            paths.push_back(node->getString(kStringFile));
    for (sstring const& path : paths) {
        QString const problem = live.alive() && path.getLength() != 0 ? reader.read(path) : QString();
        if (!problem.isEmpty())
            return {{"problem", problem}};
    }
    return {};
}

int readAnew(guiHtmlBase& root, guiHtml* node) TARN_ON(velaGuiRole)
{
    if (node != &root)
        return node->loadFile(node->getString(kStringFile));
    if (std::optional<sstring> const text = textOf(root))
        return root.guiHtml::setText(*text, guiGiven_pageOf(root)->directory);
    // As a node: handlers that wait go on, and the window keeps its place in the program.
    return root.guiHtml::loadFile(root.getString(kStringFile));
}

/// The title that script has given the window stays.
class keptTitle
{
public:
    explicit keptTitle(guiHtmlBase& root) TARN_ON(velaGuiRole) : m_root(root), m_title(root.getTitle())
    {
        guiGivenPage const* const page = guiGiven_pageOf(root);
        m_isScripts = page && page->title != m_title;
    }
    void giveBack() const
    {
        if (m_isScripts)
            m_root.setTitle(m_title);
    }

private:
    guiHtmlBase& m_root;
    sstring m_title;
    bool m_isScripts = false;
};

/// A part of a window that is shown anew: what is kept of it, from when this is made.
class shownPart
{
public:
    shownPart(guiHtmlBase& root, guiHtml* node) TARN_ON(velaGuiRole)
        : m_root(root), m_node(node), m_title(root), m_kept(node)
    {}

    void read() TARN_ON(velaGuiRole);
    void giveViews() TARN_ON(velaGuiRole)
    {
        if (m_node.alive() && !m_root.isReleased())
            m_kept.giveViews(m_node.get());
    }

private:
    guiHtmlBase& m_root;
    guiNodeWatch m_node;
    keptTitle m_title;
    guiKeptPage m_kept;
};

void shownPart::read()
{
    if (!m_node.alive() || m_root.isReleased())
        return;
    guiHtml::sizes_t const fixed = m_root.m.fixed; // a window has the size that it has
    guiLayoutHold hold;
    readAnew(m_root, m_node.get());
    if (!m_node.alive() || m_root.isReleased())
        return;
    if (m_node.get() == &m_root && m_root.m.zoom == kUnzoomed)
        m_root.m.fixed = fixed;
    m_title.giveBack();
    m_kept.giveValues(m_node.get());
    hold.release();
}

QJsonObject show(guiHtmlBase& root, QJsonObject const& asked) TARN_ON(velaGuiRole)
{
    if (isBusy()) // by what has begun since the check
        return {{"isBusy", true}};
    showingScope const showing;
    guiPageInCall const alive(root);
    guiKeptFocus::endComposing(root);
    std::list<shownPart> parts;
    for (guiHtml* node : targetsOf(root, filesIn(asked)))
        parts.emplace_back(root, node);
    guiKeptFocus const focus(root); // fields that lose the keyboard forget what is selected in them
    guiProblemStrip::show(root, QString());
    for (shownPart& part : parts)
        part.read();
    guiReloadFiles_forgetTexts();
    if (root.isReleased())
        return {};
    root.setHasPage(root.getChildCount() != 0);
    focus.giveTo(root);
    for (shownPart& part : parts)
        part.giveViews();
    return {};
}

QJsonObject tell(guiHtmlBase& root, QJsonObject const& asked) TARN_ON(velaGuiRole)
{
    guiReloadFiles_forgetTexts();
    guiProblemStrip::show(root, asked["message"].toString());
    return {};
}

// ---- Others ----

QJsonObject expect(QJsonObject const& asked) TARN_ON(velaGuiRole)
{
    guiWindowPlaces_expect(asked["places"].toArray());
    return {};
}

QJsonObject answerFor(QString const& what, QJsonObject const& asked, guiHtml* page) TARN_ON(velaGuiRole)
{
    if (what == u"expect")
        return expect(asked);
    if (what == u"places")
        return {{"places", guiWindowPlaces_read()}};
    if (!page || !pGUI->contains(page))
        return {{"isGone", true}};
    guiHtmlBase& root = *guiHtmlBase::of(page);
    if (root.isReleased())
        return {{"isGone", true}};
    if (what == u"check")
        return check(root, asked);
    return what == u"show" ? show(root, asked) : tell(root, asked);
}

} // namespace

void guiReload_start(guiFileListener const& listener)
{
    assertOnGuiThread();
    guiReloadFiles_listen(listener);
    static auto& watcher = *new reloadWatcher; // never destroyed: pages may outlive static objects
    if (!guiPageWatcher::current())
        guiPageWatcher::install(&watcher);
    for (guiHtml* page : pGUI->openPages())
        noteFiles(guiPageObjectOf(page), page);
}

void guiReload_run(QByteArray const& request, guiHtml* page, guiReloadAnswer const& answer)
{
    assertOnGuiThread();
    QJsonObject const asked = QJsonDocument::fromJson(request).object();
    QString const what = asked["do"].toString();
    QByteArray const answered = QJsonDocument(answerFor(what, asked, page)).toJson(QJsonDocument::Compact);
    if (what == u"show" || what == u"tell")
        guiPostLast([answer, answered] { answer(answered); });
    else
        answer(answered);
}
