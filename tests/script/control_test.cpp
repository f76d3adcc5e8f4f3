// tests/script/control_test.cpp: tests of the GuiControl class: every method with right and wrong arguments, on
// elements that exist, that do not, and that are gone; its two read-only properties; and how a node's own control
// object is made.
#include "controls/guihtmlcontrol.h"
#include "controls/guihtmlcontrolmenu.h"
#include "controls/guihtmlimage.h"
#include "controls/guimovie.h"
#include "script/guicontrol.h"
#include "tests/script/scriptfixture.h"

#include <QScrollBar>

namespace {

class ControlTest : public ScriptTest
{
protected:
    static constexpr char const* kBox = "<table name=Box width=150 height=40 border=3><tr><td>x</td></tr></table>";

    NativeObjectRef box(NativeWindow& window) { return window.control("box"); }
};

NativeArguments const kWrongTexts[] = {{}, {1}, {true}, {NativeValue()}, {"a", "b"}};
NativeArguments const kWrongSwitches[] = {{"on"}, {NativeValue()}, {true, true}, {1, 2}};
NativeArguments const kSuperfluous[] = {{1}, {"x"}, {NativeValue()}, {1, 2}};

TEST_F(ControlTest, TextMethodsRefuseOtherArguments)
{
    NativeWindow window = windowOf(kBox);
    NativeObjectRef control = box(window);
    for (char const* method : {"loadFile", "loadBackground", "setText"})
        for (NativeArguments const& wrong : kWrongTexts)
            EXPECT_EQ(control->call(method, wrong), NativeValue(false)) << method << wrong.size();
    for (char const* method : {"setCaption", "setSizePolicy"})
        for (NativeArguments const& wrong : kWrongTexts)
            EXPECT_EQ(control->call(method, wrong), NativeValue()) << method << wrong.size();
    onGuiThread(window, [](guiHtmlBase* root) {
        guiHtml* node = root->getNamed("box");
        EXPECT_FALSE(node->hasString(kStringCaption));
        EXPECT_EQ(node->getSizePolicy(), kPolicyResize);
    });
}

TEST_F(ControlTest, SwitchesRefuseOtherArguments)
{
    NativeWindow window = windowOf(kBox);
    NativeObjectRef control = box(window);
    control->call("disable");
    for (char const* method : {"enable", "play"})
        for (NativeArguments const& wrong : kWrongSwitches)
            EXPECT_EQ(control->call(method, wrong), NativeValue()) << method;
    EXPECT_EQ(control->call("isEnabled"), NativeValue(false));
    control->call("enable");
    for (NativeArguments const& wrong : kSuperfluous) {
        EXPECT_EQ(control->call("disable", wrong), NativeValue());
        EXPECT_EQ(control->call("isEnabled", wrong), NativeValue(false));
        EXPECT_EQ(control->call("getSizePolicy", wrong), NativeValue());
    }
    EXPECT_EQ(control->call("isEnabled"), NativeValue(true));
}

TEST_F(ControlTest, EnableTakesNothingABooleanOrANumber)
{
    NativeWindow window = windowOf(kBox);
    NativeObjectRef control = box(window);
    struct
    {
        NativeArguments args;
        bool isOn;
    } const cases[] = {{{false}, false}, {{}, true}, {{0}, false}, {{true}, true}, {{0.0}, false}, {{-1}, true}};
    for (auto const& [args, isOn] : cases) {
        EXPECT_EQ(control->call("enable", args), NativeValue());
        EXPECT_EQ(control->call("isEnabled"), NativeValue(isOn));
    }
}

TEST_F(ControlTest, TheSameElementIsTheSameObjectEachTime)
{
    NativeWindow window = windowOf("<table name=Box><tr><td name=cell>x</td></tr></table>");
    EXPECT_EQ(window.control("cell").get(), window.control("CELL").get());
    EXPECT_NE(window.control("cell").get(), window.control("box").get());
    EXPECT_EQ(window.control("").get(), window.control("").get());
    NativeWindow other = windowOf("<table name=Box><tr><td name=cell>x</td></tr></table>");
    EXPECT_NE(window.control("cell").get(), other.control("cell").get());
}

TEST_F(ControlTest, ObjectsOfElementsThatAreGoneAreGivenUpInTheEnd)
{
    NativeWindow window = windowOf("<td name=stays>x</td>");
    NativeObject* const stays = window.control("stays").get();
    auto const objects = [&] { return host.engine().objects().size(); };
    auto show = [&](int i) {
        std::string const name = "cell" + std::to_string(i);
        window.setText("<td name=stays>x</td><td name=" + name + ">y</td>");
        ASSERT_TRUE(window.control(name));
        ASSERT_EQ(window.control("stays").get(), stays);
    };
    for (int i = 0; i < 100; ++i)
        show(i);
    auto const before = objects();
    for (int i = 100; i < 400; ++i)
        show(i);
    EXPECT_LE(objects(), before + 64);
}

TEST_F(ControlTest, TextReplacesTheElementsContent)
{
    NativeWindow window = windowOf(kBox);
    EXPECT_EQ(box(window)->call("setText", {"<table name=Inner><tr><td>y</td></tr></table>"}), NativeValue(true));
    EXPECT_TRUE(window.control("Inner"));
}

TEST_F(ControlTest, FileReplacesTheElementsContent)
{
    write("part.html", "<html><body><table name=Part><tr><td>y</td></tr></table></body></html>");
    NativeWindow window = windowOf(kBox);
    EXPECT_EQ(box(window)->call("loadFile", {"part.html"}), NativeValue(true));
    EXPECT_TRUE(window.control("part"));
    std::string log = printed([&] { EXPECT_EQ(box(window)->call("loadFile", {"gone.html"}), NativeValue(false)); });
    EXPECT_EQ(log, "guiHtml::loadFile() - failed to load file " + (folder / "gone.html").string() + "\n");
}

TEST_F(ControlTest, BackgroundThatIsMissingIsNamed)
{
    NativeWindow window = windowOf(kBox);
    std::string log =
        printed([&] { EXPECT_EQ(box(window)->call("loadBackground", {"gone.png"}), NativeValue(false)); });
    EXPECT_EQ(log, "guiLoadImage() - failed to load image " + (folder / "gone.png").string() + "; file not found\n");
}

TEST_F(ControlTest, CaptionIsSet)
{
    NativeWindow window = windowOf(kBox);
    EXPECT_EQ(box(window)->call("setCaption", {"Größe"}), NativeValue());
    onGuiThread(window, [](guiHtmlBase* root) {
        EXPECT_EQ(guiComponent::printable(root->getNamed("box")->getString(kStringCaption)), "Größe");
    });
}

TEST_F(ControlTest, PictureTakesAnotherFileWithoutLoadingThePageAgain)
{
    NativeWindow window = windowOf("<img name=Pic src=\"first.png\"> <table name=Kept><tr><td>x</td></tr></table>");
    guiHtml* kept = nullptr;
    onGuiThread(window, [&](guiHtmlBase* root) { kept = root->getNamed("kept"); });
    EXPECT_EQ(window.control("pic")->call("loadFile", {"second.png"}), NativeValue(true));
    onGuiThread(window, [&](guiHtmlBase* root) {
        auto* image = static_cast<guiHtmlImage*>(root->getNamed("pic"));
        EXPECT_STREQ(image->getSource().c_str(), (folder / "second.png").c_str());
        EXPECT_EQ(root->getNamed("kept"), kept);
    });
}

TEST_F(ControlTest, PlayLeavesElementsAloneThatHaveNothingToPlay)
{
    NativeWindow window =
        windowOf("<img name=Still src=\"a.png\"><img name=Gone src=\"gone.avi\">" + std::string(kBox));
    for (char const* name : {"still", "gone", "box"})
        EXPECT_EQ(window.control(name)->call("play"), NativeValue()) << name;
    onGuiThread(window, [](guiHtmlBase* root) {
        for (char const* name : {"still", "gone"}) {
            guiMovie const* movie = static_cast<guiHtmlImage*>(root->getNamed(name))->getMovie();
            EXPECT_FALSE(movie && movie->isPlaying()) << name;
        }
    });
}

TEST_F(ControlTest, SizePolicyOfAnOpenWindowShowsAtOnce)
{
    NativeWindow window =
        windowOf("<table name=wide height=60 scrolling=yes><tr><td><table height=200>x</table></td></tr></table>"
                 "<table height=900><tr><td>y</td></tr></table>");
    ASSERT_TRUE(window.open());
    auto heightOf = [&] {
        int height = 0;
        onGuiThread(window, [&](guiHtmlBase* root) { height = root->getNamed("wide")->m.rect.height; });
        return height;
    };
    auto hasBar = [&] {
        bool has = false;
        onGuiThread(window, [&](guiHtmlBase* root) { has = root->getScroll().barY != nullptr; });
        return has;
    };
    EXPECT_EQ(heightOf(), 60);
    window.control("wide")->call("setSizePolicy", {"RESIZE"});
    EXPECT_EQ(heightOf(), 200);
    EXPECT_FALSE(hasBar());
    window.call("setSizePolicy", {"SCROLL"});
    EXPECT_TRUE(hasBar());
    window.call("setSizePolicy", {"FIXED"});
    EXPECT_FALSE(hasBar());
}

TEST_F(ControlTest, SizePolicyTakesTheConstantsOnly)
{
    NativeWindow window = windowOf(kBox);
    NativeObjectRef control = box(window);
    for (char const* policy : {"FIXED", "SCROLL", "RESIZE"}) {
        control->call("setSizePolicy", {host.classProperty("GuiSizePolicy", policy)});
        EXPECT_EQ(control->call("getSizePolicy"), NativeValue(policy));
        for (char const* other : {"fixed", "Scroll", "", "RESIZE "})
            control->call("setSizePolicy", {other});
        EXPECT_EQ(control->call("getSizePolicy"), NativeValue(policy));
    }
}

TEST_F(ControlTest, WidthAndHeightAreThoseOfTheClientRectangleAndReadOnly)
{
    NativeWindow window = windowOf(kBox);
    NativeObjectRef control = box(window);
    EXPECT_EQ(window.call("open"), NativeValue(true));
    guiRect client;
    onGuiThread(window, [&](guiHtmlBase* root) { root->getNamed("box")->getClientRect(&client); });
    EXPECT_GT(client.width, 0);
    EXPECT_EQ(control->get("width"), NativeValue(client.width));
    EXPECT_EQ(control->get("height"), NativeValue(client.height));
    EXPECT_FALSE(control->set("width", 3));
    EXPECT_FALSE(control->set("height", 3));
    EXPECT_FALSE(control->remove("width"));
    EXPECT_EQ(control->get("width"), NativeValue(client.width));
    EXPECT_TRUE(control->set("depth", 3)); // an ordinary property of the object
    EXPECT_EQ(control->get("depth"), NativeValue(3));
    EXPECT_EQ(host.classProperty("GuiControl", "width"), NativeValue());
}

TEST_F(ControlTest, HandlersOfPropertiesAcceptWidthAndHeightOfInstancesAlone)
{
    LibManager& manager = pGUI->getManager();
    for (char const* name : {"width", "height", "Width", "depth", "SCROLL", ""}) {
        NativeValue value(name);
        NativeValue out("before");
        bool isKnown = std::string(name) == "width" || std::string(name) == "height";
        EXPECT_EQ(guiControl_onAddProp(manager, nullptr, nullptr, value, false), isKnown) << name;
        EXPECT_EQ(guiControl_onGetProp(manager, nullptr, nullptr, value, out, false), isKnown) << name;
        EXPECT_EQ(out, isKnown ? NativeValue(0) : NativeValue("before")) << name;
        EXPECT_FALSE(guiControl_onAddProp(manager, nullptr, nullptr, value, true)) << name;
        EXPECT_FALSE(guiControl_onGetProp(manager, nullptr, nullptr, value, out, true)) << name;
        for (bool isStatic : {false, true}) {
            EXPECT_FALSE(guiControl_onSetProp(manager, nullptr, nullptr, value, out, isStatic)) << name;
            EXPECT_FALSE(guiControl_onDelProp(manager, nullptr, nullptr, value, isStatic)) << name;
        }
    }
}

/// Every method of the class with good arguments, and what it gives when there is no element.
struct
{
    char const* method;
    NativeArguments args;
    NativeValue neutral;
} const kMethods[] = {
    {"loadBackground", {"x.png"}, false},
    {"loadFile", {"x.html"}, false},
    {"setText", {"x"}, false},
    {"setCaption", {"x"}, {}},
    {"play", {true}, {}},
    {"enable", {}, {}},
    {"disable", {}, {}},
    {"isEnabled", {}, false},
    {"setSizePolicy", {"FIXED"}, {}},
    {"getSizePolicy", {}, "RESIZE"},
};

void expectNeutral(NativeObjectRef const& control)
{
    for (auto const& [method, args, neutral] : kMethods)
        EXPECT_EQ(control->call(method, args), neutral) << method;
    EXPECT_EQ(control->get("width"), NativeValue(0));
    EXPECT_EQ(control->get("height"), NativeValue(0));
}

TEST_F(ControlTest, OfNoWindowGivesNeutralResults)
{
    NativeObjectRef control = host.create("GuiControl");
    EXPECT_EQ(printed([&] { expectNeutral(control); }), "");
}

TEST_F(ControlTest, OfAnElementThatWentWithItsPageGivesNeutralResultsAndIsNamed)
{
    NativeWindow window = windowOf(kBox);
    NativeObjectRef control = box(window);
    window.setText("nothing of that name");
    std::string line = "GuiWindow::GetControl() - control box not found in window\n";
    std::string expected;
    for (std::size_t i = 0; i < std::size(kMethods) + 2; ++i)
        expected += line;
    EXPECT_EQ(printed([&] { expectNeutral(control); }), expected);
    window.setText(kBox);
    EXPECT_EQ(control->call("isEnabled"), NativeValue(true)); // an element of that name is there again
}

TEST_F(ControlTest, WorksOnThePageOfAClosedWindow)
{
    NativeWindow window = windowOf(kBox);
    window.call("open");
    NativeObjectRef control = box(window);
    window.close();
    control->call("setSizePolicy", {"FIXED"});
    EXPECT_EQ(control->call("getSizePolicy"), NativeValue("FIXED"));
}

TEST_F(ControlTest, OfAWindowThatEndedGivesNeutralResults)
{
    NativeObjectRef control;
    {
        NativeWindow window = windowOf(kBox);
        control = box(window);
        windowOf(""); // the session knows another window now
        window.object()->runDestroyHandler();
    }
    EXPECT_EQ(printed([&] { expectNeutral(control); }), "");
}

TEST_F(ControlTest, EmptyNameIsThePageItself)
{
    NativeWindow window = windowOf(kBox);
    NativeObjectRef page = window.control("");
    ASSERT_TRUE(page);
    page->call("setSizePolicy", {"SCROLL"});
    EXPECT_EQ(window.call("getSizePolicy"), NativeValue("SCROLL"));
}

/// A control with an object of its own, as control nodes make it on demand.
class ObjectNode : public guiHtmlControl
{
public:
    explicit ObjectNode(char const* name) { setString(kStringName, sstring(name)); }
    ~ObjectNode() override
    {
        if (object) {
            pGUI->unbindObject(object);
            object->letGo();
        }
    }
    using guiHtmlControl::operator=;
    ScriptObject* getCustomObject() override
    {
        if (!object && (object = CreateControlObject(getBaseHtml()->getPageObject()))) {
            FleshInControlObject(object, this);
            pGUI->bindObject(object, this);
        }
        return object;
    }
    ScriptObject* object = nullptr;
};

TEST_F(ControlTest, ANodesOwnObjectIsTheControlAndMeansThatNode)
{
    NativeWindow window = windowOf(kBox);
    std::vector<ObjectNode*> nodes;
    onGuiThread(window, [&](guiHtmlBase* root) {
        for (char const* name : {"twin", "twin", ""})
            nodes.push_back(static_cast<ObjectNode*>(root->append(new ObjectNode(name))));
        for (ObjectNode* node : nodes)
            node->getCustomObject();
    });
    NativeObjectRef first = window.control("twin");
    EXPECT_EQ(first.get(), nodes[0]->object);
    EXPECT_EQ(first->get("name"), NativeValue("twin"));
    EXPECT_EQ(first->get("window").object(), window.object());
    for (auto const& entry : kMethods)
        EXPECT_TRUE(first->has(entry.method)) << entry.method;
    for (ObjectNode* node : nodes) {
        static_cast<NativeObject*>(node->object)->call("disable");
        EXPECT_FALSE(node->isEnabled());
    }
    NativeObjectRef unnamed(static_cast<NativeObject*>(nodes[2]->object));
    window.setText("another page");
    EXPECT_EQ(printed([&] { expectNeutral(unnamed); }), "") << "the page itself is not meant";
    EXPECT_EQ(window.call("isValid"), NativeValue(true));
}

TEST_F(ControlTest, AnObjectOfAnotherClassIsGivenTheMethodsAndMeansItsNode)
{
    NativeWindow window = windowOf(kBox);
    NativeObjectRef object = host.object();
    object->on("isEnabled", [](NativeObject&, NativeArguments const&) { return NativeValue("its own"); });
    onGuiThread(window, [&](guiHtmlBase* root) {
        guiHtml* node = root->getNamed("box");
        FleshInControlObject(object.get(), node);
        pGUI->bindObject(object.get(), node);
    });
    EXPECT_EQ(object->get("name"), NativeValue("Box"));
    EXPECT_EQ(object->get("window").object(), window.object());
    object->call("setSizePolicy", {"FIXED"});
    EXPECT_EQ(object->call("getSizePolicy"), NativeValue("FIXED"));
    EXPECT_EQ(object->call("isEnabled"), NativeValue("its own"));
    pGUI->unbindObject(object.get());
    EXPECT_EQ(object->call("getSizePolicy"), NativeValue("RESIZE"));
}

/// A picture that counts how often it is told that it shows.
class ShownImage : public guiHtmlImage
{
public:
    using guiHtmlImage::operator=;
    void onShow() override { ++shown; }
    int shown = 0;
};

TEST_F(ControlTest, ANewPictureIsToldThatItShowsOnlyWhileItsWindowIsVisible)
{
    NativeWindow window = windowOf(kBox);
    ShownImage* image = nullptr;
    onGuiThread(window, [&](guiHtmlBase* root) {
        image = static_cast<ShownImage*>(root->append(new ShownImage));
        image->setString(kStringName, sstring("pic"));
    });
    NativeObjectRef control = window.control("pic");
    EXPECT_EQ(control->call("loadFile", {"a.png"}), NativeValue(true));
    EXPECT_EQ(image->shown, 0);
    window.call("open");
    int shown = image->shown;
    printed([&] { EXPECT_EQ(control->call("loadFile", {"b.png"}), NativeValue(true)); });
    EXPECT_EQ(image->shown, shown + 1);
    window.close();
}

TEST_F(ControlTest, TheControlThatCallsAHandlerIsTheCurrentOne)
{
    NativeWindow window = windowOf(kBox);
    EXPECT_EQ(host.session("currentControl"), NativeValue());
    window.on("onPick", [](NativeWindow&, NativeArguments const&) {});
    window.on("eMouseMove", [](NativeWindow&, NativeArguments const&) {});
    onGuiThread(window, [&](guiHtmlBase* root) {
        for (char const* name : {"one", "two"})
            root->append(new ObjectNode(name));
    });
    for (char const* name : {"one", "two"}) {
        follow(window, "event://onPick", name);
        NativeObjectRef current = host.session("currentControl").object();
        ASSERT_TRUE(current);
        EXPECT_EQ(current->get("name"), NativeValue(name));
        EXPECT_EQ(current->get("window").object(), window.object());
    }
    follow(window, "event://eMouseMove", "one");
    EXPECT_EQ(host.session("currentControl").object()->get("name"), NativeValue("two"));
}

TEST_F(ControlTest, TheMenuIsTheCurrentControlOfItsEvent)
{
    constexpr char const* kMenu = "<object classid=menu name=main><param name=save value=Save></object>";
    NativeWindow window = windowOf(std::string(kMenu) + "<input type=button name=b value=B onclick=event://onPick>");
    std::vector<NativeValue> current;
    auto note = [&](NativeWindow&, NativeArguments const& args) {
        NativeObjectRef control = args[0].object()->get("currentControl").object();
        current.push_back(control ? control->get("name") : NativeValue());
    };
    window.on("onPick", note);
    window.on("eMenu", note);
    window.open();
    follow(window, "event://onPick", "b");
    window.control("main")->call("activateItem", {"save"});
    follow(window, "event://onPick", "b");
    onGuiThread(window, [](guiHtmlBase* root) {
        auto* menu = static_cast<guiHtmlControlMenu*>(root->getNamed("main"));
        menu->setString(kStringName, sstring());
        menu->activateItem(sstring("save"));
    });
    EXPECT_EQ(current, (std::vector<NativeValue>{"b", "main", "b", NativeValue()})) << "without a name there is none";
    window.close();
}

} // namespace
