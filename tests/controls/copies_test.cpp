// tests/controls/copies_test.cpp: clones of controls.
#include "tests/support/parsedpage.h"

#include "controls/guihtmlcontrolbutton.h"
#include "page/guihtmltext.h"

TEST(Copies, ACloneIsOfTheSameClassUnderTheGivenParent)
{
    guiHtml parent;
    guiHtmlControlButton button;
    button.init(kButtonRadio, true);
    button.initText("yes");
    button.setAction("event://go");
    std::unique_ptr<guiHtml> clone(button.Clone(&parent));
    auto* copy = dynamic_cast<guiHtmlControlButton*>(clone.get());
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(copy->getParent(), &parent);
    EXPECT_EQ(copy->getButtonType(), kButtonRadio);
    EXPECT_EQ(copy->isChecked(), 1);
    EXPECT_EQ(utf8(copy->getText()), "yes");
    EXPECT_EQ(utf8(copy->getAction()), "event://go");
    guiHtmlText text;
    text.editText() = "run";
    std::unique_ptr<guiHtml> run(text.Clone(nullptr));
    EXPECT_EQ(utf8(static_cast<guiHtmlText*>(run.get())->getText()), "run");
}
