// tests/script/formvalues_test.cpp: tests of what becomes of the values of controls when script works with their
// window: changes the controls or the page, and opens and closes it.
#include "tests/script/scriptfixture.h"
#include "tests/support/valuenode.h"

#include <QWidget>

namespace {

class FormValues : public ScriptTest
{
protected:
    /// A control at the end of the page, or of the element called `parent`.
    static ValueNode* add(NativeWindow& window, char const* name, char const* value, char const* parent = "")
    {
        ValueNode* node = nullptr;
        onGuiThread(window, [&](guiHtmlBase* root) {
            guiHtml* into = *parent != 0 ? root->getNamed(sstring(parent)) : root;
            node = static_cast<ValueNode*>(into->append(new ValueNode(name, value)));
        });
        return node;
    }

    NativeObjectRef form() { return host.session("currentForm").object(); }
};

constexpr char const* kCell = "<table name=Part><tr><td>x</td></tr></table>";

TEST_F(FormValues, AreNotReadWhenTheHandlerChangedTheControlItself)
{
    NativeWindow window = windowOf("");
    ValueNode* name = add(window, "name", "Ada");
    window.on("onOk", [&](NativeWindow& self, NativeArguments const&) {
        self.control("name")->call("setText", {"Grace"});
        form()->set("name", "Ada"); // what it was: not a change
    });
    follow(window, "event://onOk");
    EXPECT_EQ(name->text, "Grace");
    EXPECT_EQ(name->reads, 0);
}

TEST_F(FormValues, GoWithTheContentThatTheirControlsStoodIn)
{
    NativeWindow window = windowOf(kCell);
    ValueNode* outer = add(window, "outer", "o");
    add(window, "inner", "i", "part");
    window.on("onOk", [](NativeWindow&, NativeArguments const&) {});
    follow(window, "event://onOk");
    EXPECT_EQ(form()->get("inner"), NativeValue("i"));
    window.control("part")->call("setText", {"new"});
    EXPECT_FALSE(form()->hasProperty("inner"));
    EXPECT_EQ(form()->get("outer"), NativeValue("o"));
    EXPECT_EQ(outer->reads, 0);
    form()->set("own", "script's");
    window.setText("all new");
    EXPECT_FALSE(form()->hasProperty("outer"));
    EXPECT_EQ(form()->get("own"), NativeValue("script's"));
}

TEST_F(FormValues, GoWithContentThatAMissingFileReplacesWhileControlsKeepTheirs)
{
    NativeWindow window = windowOf(kCell);
    add(window, "outer", "o");
    add(window, "inner", "i", "part");
    window.on("onOk", [](NativeWindow&, NativeArguments const&) {});
    follow(window, "event://onOk");
    std::string log = printed([&] {
        for (char const* name : {"outer", "part"})
            EXPECT_EQ(window.control(name)->call("loadFile", {"missing.html"}), NativeValue(false));
    });
    std::string const line = "guiHtml::loadFile() - failed to load file " + (folder / "missing.html").string() + "\n";
    EXPECT_EQ(log, line + line);
    EXPECT_FALSE(form()->hasProperty("inner"));
    EXPECT_EQ(form()->get("outer"), NativeValue("o"));
}

TEST_F(FormValues, ThatAHandlerSetsAfterItLoadedAPageReachTheNewControls)
{
    NativeWindow window = windowOf(kCell);
    ValueNode* fresh = nullptr;
    window.on("onOk", [&](NativeWindow& self, NativeArguments const&) {
        self.setText(kCell);
        onGuiThread(self, [&](guiHtmlBase* root) {
            fresh = static_cast<ValueNode*>(root->getNamed("part")->append(new ValueNode("fresh", "own")));
            root->formValues().load(root);
        });
        form()->set("fresh", "set later");
    });
    add(window, "old", "1");
    follow(window, "event://onOk");
    EXPECT_EQ(fresh->text, "set later");
    EXPECT_EQ(form()->hasProperty("old"), false);
}

TEST_F(FormValues, AreInTheFormWhenTheWindowHasClosed)
{
    NativeWindow window = windowOf("");
    ValueNode* name = add(window, "name", "Ada");
    window.call("open");
    EXPECT_FALSE(form()->hasProperty("name"));
    name->text = "typed";
    window.close();
    EXPECT_EQ(form()->get("name"), NativeValue("typed"));
}

TEST_F(FormValues, AreInTheFormWhenShowReturns)
{
    NativeWindow window = windowOf("");
    add(window, "name", "Ada");
    window.on("ePostOpen", [&](NativeWindow& self, NativeArguments const&) {
        EXPECT_EQ(form()->get("name"), NativeValue("Ada"));
        onGuiThread(self, [](guiHtmlBase* root) {
            static_cast<ValueNode*>(root->getNamed("name"))->text = "typed";
            QMetaObject::invokeMethod(root->getTopLevelWidget(), "close", Qt::QueuedConnection); // as the user does
        });
    });
    window.show();
    EXPECT_EQ(form()->get("name"), NativeValue("typed"));
}

TEST_F(FormValues, ThatAHandlerSetBeforeItClosesTheWindowStay)
{
    NativeWindow window = windowOf("");
    ValueNode* name = add(window, "name", "Ada");
    window.call("open");
    window.on("onOk", [&](NativeWindow& self, NativeArguments const&) {
        form()->set("name", "Grace");
        self.close();
    });
    follow(window, "event://onOk");
    EXPECT_EQ(form()->get("name"), NativeValue("Grace"));
    EXPECT_EQ(name->text, "Grace");
}

} // namespace
