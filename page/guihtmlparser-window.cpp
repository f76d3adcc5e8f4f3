// page/guihtmlparser-window.cpp: reads a whole page into a node or a window.
#include "page/guihtmlparser.h"

#include "foundation/vela-error.h"
#include "foundation/vela-log.h"
#include "foundation/vela-mlparser.h"
#include "page/guinumbers.h"
#include "page/guipageroot.h"
#include "page/guirareattributes.h"
#include "page/guirareread.h"

#include <cassert>

/// Runs one step over the markup. Markup is parsed on demand, so every access may find a syntax error: the first one is
/// kept for the log, and everything parsed before it is kept.
template <typename Step>
void guiHtmlParser::guarded(Step step)
{
    try {
        step();
    } catch (mlParseError const& error) {
        keepError(error.toEnglishString());
    } catch (velaError const& error) {
        keepError(error.getMessage() + "\n");
    }
}

void guiHtmlParser::keepError(sstring const& message)
{
    if (m_error.getLength() == 0)
        m_error = message;
}

/// Tells the root of the node where the page names its handlers. Logs the first error, if there was one; whether the
/// page was read completely.
bool guiHtmlParser::endPage(guiHtml* node)
{
    if (guiPageRoot* root = m_mistakes.handlers().empty() ? nullptr : node->getBaseHtml())
        root->handlerPlaces().add(velaPrintable(m_mistakes.file()), m_mistakes.handlers());
    for (mlUnknownReference const& reference : m_parser->unknownReferences())
        m_mistakes.addUnknownReference(reference.name, reference.line);
    if (m_error.getLength() == 0)
        return m_hasContent;
    velaLog("guiHtmlParser::pullPage() - %s", m_error.c_str());
    return false;
}

int guiHtmlParser::pullPage(guiHtml* node)
{
    auto* window = dynamic_cast<guiPageRoot*>(node);
    if (mlSection* section = openPage(node, window)) {
        pullRestrict(node, section);
        if (window)
            pullBorder(node, section); // before the content, which takes over a gap
        guarded([&] { pullBase(node, section); });
    }
    return endPage(node);
}

int guiHtmlParser::pullWindow(guiPageRoot* window)
{
    if (mlSection* section = openPage(window, window)) {
        pullBorder(window, section);
        pullSizeInfo(window, section);
        guarded([&] { pullBase(window, section); });
    }
    return m_hasContent && endPage(window); // without content the caller logs the only line
}

/// Parses the markup, and reads the window's title (if `window` is not null) and the node's colours, background and
/// alignment. Returns the section with the content, null without one.
mlSection* guiHtmlParser::openPage(guiHtml* node, guiPageRoot* window)
{
    guarded([&] { m_parser->fullParse(); });
    if (window)
        guarded([&] { pullTitle(window); });
    mlSection* section = findContent();
    m_hasContent = section != nullptr;
    if (!section)
        return nullptr;
    m_mistakes.checkAttributes(section);
    if (window)
        window->setString(kStringRare, sstring()); // those of the page before
    guiPullRareAttributes(node, section);
    pullDefaultColors(node, section);
    pullBackground(node, section);
    pullPageDirection(node, section);
    pullObjectAlignment(node, section);
    keepPlace(node, section, {"background", "icon"});
    return section;
}

/// That of the body, else that of the html element.
void guiHtmlParser::pullPageDirection(guiHtml* node, mlSection* section)
{
    mlSection* around = section;
    if (!hasAttr(section, "dir"))
        guarded([&] { around = m_parser->findSection("html"); });
    bool const isGiven = around && hasAttr(around, "dir");
    if (!isGiven && node->getParent())
        return; // that of the element stays
    bool const wasTurned = node->m.direction == guiDirection::kRightToLeft;
    node->m.direction = isGiven ? pullDirection(around, guiDirection::kByText) : guiDirection::kByText;
    if (node->m.direction == guiDirection::kRightToLeft)
        node->m.alignX = kAlignRight;
    else if (wasTurned && node->m.alignX == kAlignRight)
        node->m.alignX = kAlignLeft;
}

// Two guarded steps: after a syntax error in the head there is no body, but still the html element.
mlSection* guiHtmlParser::findContent()
{
    mlSection* section = nullptr;
    for (char const* name : {"body", "html"})
        if (!section)
            guarded([&] { section = m_parser->findSection(name); });
    return section;
}

void guiHtmlParser::pullTitle(guiPageRoot* window)
{
    if (mlSection* title = m_parser->findSection("title"))
        window->setTitle(pullText(title));
}

void guiHtmlParser::pullBase(guiHtml* node, mlSection* section)
{
    assert(m_scopes.empty());
    m_depth = node->getDepth();
    m_direction = m_directionAround = node->m.direction;
    pullContent(node, section);
    assert(m_scopes.empty() && m_depth == node->getDepth());
    for (auto const& [kind, state] : std::exchange(m_states, {}))
        state->finish();
}

void guiHtmlParser::pullSizeInfo(guiPageRoot* window, mlSection* section)
{
    auto pixels = [section](char const* name) { return guiToPixels(pullAttr(section, name)); };
    window->setMinimumSize(pixels("minwidth"), pixels("minheight"));
    window->setMaximumSize(pixels("maxwidth"), pixels("maxheight"));
    window->setDefaultSize(pixels("width"), pixels("height"));
    if (hasAttr(section, "noresize"))
        window->setResizable(0);
}
