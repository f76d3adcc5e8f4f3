// controls/guihtmllabel-read.cpp: reads labels: text that stands for the control that `for` names, or for the first one
// in the label.
#include "controls/guihtmlcontrol.h"
#include "controls/guihtmlread.h"
#include "page/guipageroot.h"

#include <vector>

namespace {

/// The keys of labels that name a control, which may come later in the page.
class labelKeys : public guiReaderState
{
public:
    void add(guiHtml* parent, char16_t letter, sstring const& name) { m_keys.push_back({parent, letter, name}); }

    void finish() override
    {
        for (labelKey const& each : m_keys) {
            guiPageRoot* const page = each.parent->getBaseHtml();
            guiHtml* const named = page ? page->getNamed(each.name) : nullptr;
            if (auto* control = dynamic_cast<guiHtmlControl*>(named))
                control->setLabelKey(each.letter);
        }
    }

private:
    struct labelKey
    {
        guiHtml* parent; // not owned; of the page that is read
        char16_t letter;
        sstring name;
    };
    std::vector<labelKey> m_keys;
};

/// The first control among the children from an entry on, and below them.
guiHtml* findControl(guiHtml* parent, unsigned from)
{
    for (unsigned i = from; i < parent->getChildCount(); ++i) {
        guiHtml* const child = parent->getChild(i);
        if (!guiChildList::isNode(child))
            continue;
        if (child->getType() == guiHtml::kTypeControl)
            return child;
        if (guiHtml* found = findControl(child, 0))
            return found;
    }
    return nullptr;
}

/// The name of a label's own control, which other windows' labels do not have.
sstring newBookmark()
{
    static unsigned long count = 0;
    return sformat("#label%lu", ++count);
}

void bind(guiHtml* control, sstring const& bookmark, char16_t key)
{
    control->setString(kStringBookmark, bookmark);
    if (auto* known = dynamic_cast<guiHtmlControl*>(control))
        known->setLabelKey(key);
}

void pullLabel(guiHtmlParser& parser, guiHtml* parent, mlSection* section)
{
    unsigned const first = parent->getChildCount();
    sstring const named = guiHtmlParser::pullAttr(section, "for", "");
    sstring const target = named.getLength() != 0 ? named : newBookmark();
    parser.setLabel(parent, target);
    parser.pullContent(parent, section);
    parser.setLabel(parent, sstring());
    char16_t const key = parser.getLabelKey();
    if (named.getLength() != 0 && key != 0)
        parser.state<labelKeys>().add(parent, key, named);
    guiHtml* const control = named.getLength() != 0 ? nullptr : findControl(parent, first);
    if (control)
        bind(control, target, key);
}

guiTag const kLabel("label", pullLabel, kTagNests);

} // namespace
