// Tests of how the values of controls travel to script and back, with controls that are nothing but a value.
#include "controls/guihtmlcontrol.h"
#include "runtime/guicallback.h"
#include "tests/script/scriptfixture.h"

#include <QWidget>

namespace {

/// A control that takes part in its form as real ones do, and counts how often it is asked. It ends with the page.
class ValueNode : public guiHtmlControl
{
public:
    ValueNode(char const* name, char const* value) : text(value) { setString(kStringName, sstring(name)); }
    using guiHtmlControl::operator=;

    void readFormProperty(ScriptObject* form) override
    {
        ++reads;
        ScriptValue* value = guiComponent::NewScriptValue();
        if (pGUI->getFormProp()->readProperty(form, getName(), value) && value->isString())
            text = value->toString(0).c_str();
        guiComponent::DeleteScriptValue(value);
        if (whileReading)
            whileReading();
    }

    void writeFormProperty(ScriptObject* form) override
    {
        ++writes;
        if (isSilent)
            return;
        ScriptValue* value = guiComponent::NewScriptValue();
        value->setString(sstring(text.c_str()));
        pGUI->getFormProp()->writeProperty(form, getName(), value);
        guiComponent::DeleteScriptValue(value);
    }

    void eraseFormProperty(ScriptObject* form) override { pGUI->getFormProp()->eraseProperty(form, getName()); }

    int setText(sstring const& content, sstring const&) override
    {
        text = content.c_str();
        return 1;
    }

    std::string text;
    bool isSilent = false; // an unchecked radio button
    int reads = 0;
    int writes = 0;
    std::function<void()> whileReading;
};

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

TEST_F(FormValues, AreInTheFormWhenAHandlerRuns)
{
    NativeWindow window = windowOf(kCell);
    add(window, "name", "Ada");
    add(window, "city", "Paris", "part");
    std::string seen;
    window.on("onOk", [&](NativeWindow&, NativeArguments const&) {
        seen = form()->get("name").text() + " " + form()->get("city").text();
    });
    follow(window, "event://onOk");
    EXPECT_EQ(seen, "Ada Paris");
}

TEST_F(FormValues, DoNotTravelForTheEightLowLevelEvents)
{
    NativeWindow window = windowOf("");
    ValueNode* node = add(window, "name", "Ada");
    for (char const* event : {"eCreate", "eDestroy", "ePaint", "eMouseMove", "eMouseOver", "eMouseOut", "eMouseDown",
                              "eMouseUp", "EMOUSEUP"}) {
        window.on(event, [&](NativeWindow&, NativeArguments const&) { form()->set("name", "changed"); });
        follow(window, std::string("event://") + event);
    }
    EXPECT_EQ(node->writes, 0);
    EXPECT_EQ(node->reads, 0);
    EXPECT_EQ(node->text, "Ada");
    window.on("eMouseMoved", [](NativeWindow&, NativeArguments const&) {});
    follow(window, "event://eMouseMoved/1");
    EXPECT_EQ(node->writes, 1);
}

TEST_F(FormValues, ComeBackWhenTheHandlerChangedThem)
{
    NativeWindow window = windowOf("");
    ValueNode* name = add(window, "name", "Ada");
    ValueNode* city = add(window, "city", "Paris");
    window.on("onOk", [&](NativeWindow&, NativeArguments const&) { form()->set("name", "Grace"); });
    follow(window, "event://onOk");
    EXPECT_EQ(name->text, "Grace");
    EXPECT_EQ(city->text, "Paris");
    EXPECT_EQ(name->reads, 1);
    EXPECT_EQ(city->reads, 0);
}

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

TEST_F(FormValues, OfOneNameAreAllReadWhenItChanged)
{
    NativeWindow window = windowOf("");
    ValueNode* first = add(window, "r", "a");
    ValueNode* second = add(window, "r", "b");
    first->isSilent = true;
    window.on("onOk", [&](NativeWindow&, NativeArguments const&) {
        EXPECT_EQ(form()->get("r"), NativeValue("b"));
        form()->set("r", "c");
    });
    follow(window, "event://onOk");
    EXPECT_EQ(first->reads + second->reads, 2);
}

TEST_F(FormValues, ThatChangeTheirKindOrGoAreChanges)
{
    NativeWindow window = windowOf("");
    ValueNode* node = add(window, "n", "1");
    const std::function<void()> changes[] = {
        [&] { form()->set("n", 1); }, [&] { form()->set("n", true); }, [&] { form()->set("n", NativeValue()); },
        [&] { form()->set("n", NativeValue(host.object())); }, [&] { form()->remove("n"); }};
    int expected = 0;
    for (auto const& change : changes) {
        window.on("onOk", [&](NativeWindow&, NativeArguments const&) { change(); });
        follow(window, "event://onOk");
        EXPECT_EQ(node->reads, ++expected);
        EXPECT_EQ(node->text, "1");
    }
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

TEST_F(FormValues, OfNodesLoadReadWhatTheFormHolds)
{
    NativeWindow window = windowOf(kCell);
    form()->set("late", "given");
    ValueNode* node = add(window, "late", "own", "part");
    onGuiThread(window, [&](guiHtmlBase* root) { root->formValues().load(root->getNamed("part")); });
    EXPECT_EQ(node->text, "given");
    EXPECT_EQ(node->reads, 1);
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

TEST_F(FormValues, OfAnOuterHandlerAreNotLostInAnInnerOne)
{
    NativeWindow window = windowOf("");
    ValueNode* name = add(window, "name", "Ada");
    std::string seen;
    window.on("onInner", [&](NativeWindow&, NativeArguments const&) { seen = form()->get("name").text(); });
    window.on("onOuter", [&](NativeWindow& self, NativeArguments const&) {
        form()->set("name", "Grace");
        follow(self, "event://onInner");
        form()->set("name", "Hedy");
    });
    follow(window, "event://onOuter");
    EXPECT_EQ(seen, "Grace");
    EXPECT_EQ(name->text, "Hedy");
    EXPECT_EQ(name->reads, 2);
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

TEST_F(FormValues, OfAScriptEventTravelToo)
{
    NativeWindow window = windowOf("");
    ValueNode* name = add(window, "name", "Ada");
    window.on("onOk", [&](NativeWindow&, NativeArguments const&) {
        EXPECT_EQ(form()->get("name"), NativeValue("Ada"));
        form()->set("name", "Grace");
    });
    guiHtmlBase* root = nullptr;
    onGuiThread(window, [&](guiHtmlBase* at) { root = at; });
    ScriptObject* self = window.object().get();
    guiCallback_CallEvent(root, self, "onOk", self); // on the script thread
    EXPECT_EQ(name->text, "Grace");
}

TEST_F(FormValues, OfTheSameNameInTwoWindowsAreTheirOwn)
{
    NativeWindow first = windowOf("");
    NativeObjectRef firstForm = form();
    NativeWindow second = windowOf("");
    add(first, "name", "Ada");
    add(second, "name", "Grace");
    for (NativeWindow* window : {&first, &second}) {
        window->on("onOk", [](NativeWindow&, NativeArguments const&) {});
        follow(*window, "event://onOk");
    }
    EXPECT_EQ(firstForm->get("name"), NativeValue("Ada"));
    EXPECT_EQ(form()->get("name"), NativeValue("Grace"));
}

TEST_F(FormValues, AHandlerThatReplacesThePageWhileTheyAreReadEndsTheReading)
{
    NativeWindow window = windowOf("");
    ValueNode* first = add(window, "first", "1");
    add(window, "second", "2");
    first->whileReading = [&] { onGuiThread(window, [](guiHtmlBase* root) { root->setText("gone", sstring()); }); };
    window.on("onOk", [&](NativeWindow&, NativeArguments const&) {
        form()->set("first", "changed");
        form()->set("second", "changed");
    });
    follow(window, "event://onOk"); // would read the second node in freed memory
    EXPECT_FALSE(form()->hasProperty("second"));
}

TEST_F(FormValues, OfControlsWithoutANameDoNotTravel)
{
    NativeWindow window = windowOf("");
    ValueNode* node = add(window, "", "x");
    window.on("onOk", [](NativeWindow&, NativeArguments const&) {});
    follow(window, "event://onOk");
    EXPECT_EQ(node->writes, 0);
    EXPECT_FALSE(form()->hasProperty(""));
}

TEST(SameValue, ComparesKindAndContent)
{
    NativeHost host;
    NativeObjectRef object = host.object();
    const NativeValue values[] = {NativeValue(), true, false, 0, 1, 1.5, "", "1", "true", object, host.object()};
    for (NativeValue const& a : values)
        for (NativeValue const& b : values)
            EXPECT_EQ(guiIsSameValue(a, b), &a == &b);
    EXPECT_TRUE(guiIsSameValue(NativeValue("Grü"), NativeValue("Grü")));
    EXPECT_TRUE(guiIsSameValue(NativeValue(object), NativeValue(object)));
}

} // namespace
