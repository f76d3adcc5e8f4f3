// runtime/guikeptfocus.h: what the user has before him on a page as a whole: the control or link that has the keyboard,
// and the text that is selected.
#pragma once

#include "foundation/vela-string.h"
#include "foundation/vela-threadrole.h"
#include "runtime/guinodekeys.h"

#include <optional>

class guiHtmlBase;
struct guiTextSpot;

/// GUI thread.
class guiKeptFocus
{
public:
    /// What the user of an input method is composing is put into its field. Before anything is kept.
    static void endComposing(guiHtmlBase& root) TARN_ON(velaGuiRole);
    /// Takes the keyboard away from the page, so that the toolkit does not pass it on while controls go.
    explicit guiKeptFocus(guiHtmlBase& root) TARN_ON(velaGuiRole);

    /// To be called when the page has been laid out.
    void giveTo(guiHtmlBase& root) const TARN_ON(velaGuiRole);

private:
    /// A run of text, or a link, known by its words and by which one with these it is.
    struct words
    {
        sstring text;
        unsigned nth = 0;
        unsigned unit = 0; // of a place in a run
    };

    void readLink(guiHtmlBase& root) TARN_ON(velaGuiRole);
    void readSelection(guiHtmlBase& root) TARN_ON(velaGuiRole);
    static words wordsOf(guiHtmlBase& root, guiTextSpot const& spot);
    static guiTextSpot spotOf(guiHtmlBase& root, words const& wanted);
    void giveLink(guiHtmlBase& root) const TARN_ON(velaGuiRole);

    std::optional<guiNodeKey> m_control;
    std::optional<words> m_link;
    std::optional<words> m_from; // of the selection
    std::optional<words> m_to;
};
