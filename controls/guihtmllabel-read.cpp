// controls/guihtmllabel-read.cpp: reads labels: text that stands for the control that `for` names, or for the first one
// in the label.
#include "controls/guihtmllabelkeys.h"
#include "controls/guihtmlread.h"

#include <memory>

namespace {

/// The keys of the labels of one page.
class labelKeys : public guiReaderState
{
public:
    void add(guiHtml* parent, char16_t letter, sstring const& target)
    {
        if (!m_keys) {
            m_keys = std::make_unique<guiHtmlLabelKeys>();
            m_parent = parent;
        }
        m_keys->addKey(letter, target);
    }

    void finish() override
    {
        if (m_keys)
            m_parent->append(m_keys.release());
    }

private:
    guiHtml* m_parent = nullptr; // of the first label; not owned, the page that is read
    std::unique_ptr<guiHtmlLabelKeys> m_keys;
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

void pullLabel(guiHtmlParser& parser, guiHtml* parent, mlSection* section)
{
    unsigned const first = parent->getChildCount();
    sstring const named = guiHtmlParser::pullAttr(section, "for", "");
    sstring const target = named.getLength() != 0 ? named : newBookmark();
    parser.setLabel(parent, target);
    parser.pullContent(parent, section);
    parser.setLabel(parent, sstring());
    guiHtml* const control = named.getLength() != 0 ? nullptr : findControl(parent, first);
    if (control)
        control->setString(kStringBookmark, target);
    if (parser.getLabelKey() != 0)
        parser.state<labelKeys>().add(parent, parser.getLabelKey(), target);
}

guiTag const kLabel("label", pullLabel, kTagNests);

} // namespace
