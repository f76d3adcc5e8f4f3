// tests/runtime/formvalues_test.cpp: tests of how the values of controls travel to script and back when a handler is
// called, with controls that are nothing but a value.
#include "runtime/guicallback.h"
#include "runtime/guiformvalues.h"
#include "runtime/guihtmlbase.h"
#include "tests/runtime/onguithread.h"
#include "tests/support/valuenode.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

/// Windows that have a page and a form.
class FormValues : public testing::Test
{
protected:
    ~FormValues() override
    {
        ::onGuiThread([this] {
            for (page const& each : m_pages)
                guiHtmlBase::release(each.root);
        });
    }

    /// A window whose page has this body.
    NativeWindow windowOf(char const* body)
    {
        NativeWindow window = host.window();
        NativeObjectRef form = host.object();
        ::onGuiThread([&] {
            auto* root = new guiHtmlBase(window.object().get(), window.object()->getPrivate(), form.get(), sstring());
            m_pages.push_back({window, form, root});
            root->setText(sstring(body), sstring());
        });
        return window;
    }

    /// A control at the end of the page, or of the element called `parent`.
    ValueNode* add(NativeWindow& window, char const* name, char const* value, char const* parent = "")
    {
        ValueNode* node = nullptr;
        onGuiThread(window, [&](guiHtmlBase* root) {
            guiHtml* into = *parent != 0 ? root->getNamed(sstring(parent)) : root;
            node = static_cast<ValueNode*>(into->append(new ValueNode(name, value)));
        });
        return node;
    }

    /// Follows a link of the page as a click does.
    void follow(NativeWindow& window, std::string const& link)
    {
        onGuiThread(window, [&](guiHtmlBase* root) { root->onHyperlink(sstring(link.c_str()), nullptr); });
    }

    void onGuiThread(NativeWindow& window, std::function<void(guiHtmlBase*)> const& work)
    {
        ::onGuiThread([&] { work(pageOf(window).root); });
    }

    /// The form of the window made last.
    NativeObjectRef form() { return m_pages.back().form; }

    NativeHost host;

private:
    struct page
    {
        NativeWindow window;
        NativeObjectRef form;
        guiHtmlBase* root;
    };

    page& pageOf(NativeWindow const& window)
    {
        for (page& each : m_pages)
            if (each.window == window)
                return each;
        throw std::out_of_range("no page");
    }

    std::vector<page> m_pages; // the roots are owned; GUI thread while it works
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
    std::function<void()> const changes[] = {
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

TEST_F(FormValues, OfNodesLoadReadWhatTheFormHolds)
{
    NativeWindow window = windowOf(kCell);
    form()->set("late", "given");
    ValueNode* node = add(window, "late", "own", "part");
    onGuiThread(window, [&](guiHtmlBase* root) { root->formValues().load(root->getNamed("part")); });
    EXPECT_EQ(node->text, "given");
    EXPECT_EQ(node->reads, 1);
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
    NativeValue const values[] = {NativeValue(), true, false, 0, 1, 1.5, "", "1", "true", object, host.object()};
    for (NativeValue const& a : values)
        for (NativeValue const& b : values)
            EXPECT_EQ(guiIsSameValue(a, b), &a == &b);
    EXPECT_TRUE(guiIsSameValue(NativeValue("Grü"), NativeValue("Grü")));
    EXPECT_TRUE(guiIsSameValue(NativeValue(object), NativeValue(object)));
}

} // namespace
