// tests/script/customelements_test.cpp: how the instances of custom elements are made and end.
#include "tests/script/customelements.h"

TEST_F(CustomElements, AreMadeWithTheirParametersBeforeTheyHearOfThePage)
{
    prepare = [&](NativeObject& object) {
        object.on("eCreate", [&](NativeObject& self, NativeArguments const& args) {
            log.push_back("eCreate " + self.get("a").text() + "," + self.get("b").text() + "," + self.get("c").text());
            EXPECT_EQ(args[0].object(), host.engine().session());
            EXPECT_TRUE(self.get("a").isString());
        });
    };
    NativeWindow window =
        load(element("", "<param name=a value=\" 1 &amp; 2 \"><param name=b value=\"\"><param name=c value>") +
             "<object classid=Probe><param name=a value=two></object>");
    EXPECT_EQ(log, (Log{"new", "new", "eCreate  1 & 2 ,,1", "eCreate two,,"}));
}

TEST_F(CustomElements, HaveTheMethodsOfControlsAToolkitAndAMouse)
{
    NativeWindow window = load(element());
    EXPECT_EQ(window.control("probe"), last);
    for (char const* name : {"loadBackground", "loadFile", "setText", "setCaption", "play", "enable", "disable",
                             "isEnabled", "setSizePolicy", "getSizePolicy", "setSize"})
        EXPECT_TRUE(last->has(name)) << name;
    EXPECT_EQ(last->get("window").object(), window.object());
    EXPECT_EQ(last->get("name"), NativeValue("probe"));
    NativeObjectRef mouse = last->get("mouse").object();
    ASSERT_TRUE(mouse);
    EXPECT_EQ(mouse->get("x"), NativeValue(0));
    EXPECT_EQ(mouse->get("y"), NativeValue(0));
    NativeObjectRef toolkit = last->get("toolkit").object();
    ASSERT_TRUE(toolkit);
    EXPECT_EQ(toolkit->get("XLEFT"), NativeValue(0));
    EXPECT_EQ(toolkit->get("XCENTER"), NativeValue(1));
    EXPECT_EQ(toolkit->get("XRIGHT"), NativeValue(2));
    for (char const* name : {"fill", "drawLine", "drawImage", "drawText", "repaint"})
        EXPECT_TRUE(toolkit->has(name)) << name;
    EXPECT_EQ(last->call("isEnabled"), NativeValue(true));
    last->call("disable");
    EXPECT_EQ(last->call("isEnabled"), NativeValue(false));
}

TEST_F(CustomElements, OfAnUnknownClassAreReportedOnceAndThePageOpens)
{
    NativeWindow window;
    std::string const text = printed([&] {
        window = open("<object classid=Nobody name=probe border=2 width=100 height=60 bgcolor=\"#0000FF\"></object>");
        move(window, 5, 5);
        press(window, 5, 5);
        window.close();
        EXPECT_TRUE(window.open());
    });
    EXPECT_EQ(text, "guiHtmlCustom: unable to construct instance of component Nobody in " +
                        (folder / "custom.html").string() + ":1\n");
    EXPECT_EQ(at(shot(window), 20, 20), kBlue);
}

TEST_F(CustomElements, WhoseConstructorThrowsAreAsUnknownOnes)
{
    prepare = [](NativeObject&) { throw std::runtime_error("no"); };
    std::string const text = printed([&] { EXPECT_TRUE(load(element()).isValid()); });
    EXPECT_NE(text.find("guiHtmlCustom: unable to construct instance of component Probe in " +
                        (folder / "custom.html").string() + ":1\n"),
              std::string::npos);
}

TEST_F(CustomElements, EndWithTheirWindowAndAreMadeAnewWithTheNextOne)
{
    prepare = hears(log, {"eCreate", "eDestroy"});
    NativeWindow window = load(element("", "<param name=a value=7>"));
    EXPECT_EQ(log, (Log{"new", "eCreate"}));
    NativeObjectRef first = last;
    EXPECT_TRUE(window.open());
    EXPECT_EQ(log, (Log{"new", "eCreate"}));
    window.close();
    EXPECT_EQ(log, (Log{"new", "eCreate", "eDestroy"}));
    EXPECT_TRUE(window.open());
    EXPECT_EQ(log, (Log{"new", "eCreate", "eDestroy", "new", "eCreate"}));
    EXPECT_NE(last, first);
    EXPECT_EQ(last->get("a"), NativeValue("7"));
    EXPECT_EQ(window.control("probe"), last);
}

TEST_F(CustomElements, EndWhenTheirContentIsReplacedAndStartWithNewContent)
{
    prepare = hears(log, {"eCreate", "eDestroy"});
    NativeWindow window = load("<table name=cell><tr><td>" + element() + "</td></tr></table>");
    EXPECT_TRUE(window.open());
    log.clear();
    window.control("cell")->call("setText", {"nothing"});
    EXPECT_EQ(log, (Log{"eDestroy"}));
    window.control("cell")->call("setText", {NativeValue(element())});
    EXPECT_EQ(log, (Log{"eDestroy", "new", "eCreate"}));
    window.setText("other");
    EXPECT_EQ(log, (Log{"eDestroy", "new", "eCreate", "eDestroy"}));
}

TEST_F(CustomElements, MayReplaceThePageOrCloseTheWindowInAnyHandler)
{
    for (char const* event : {"eCreate", "eDestroy", "ePaint", "eMouseDown", "eMouseOver", "eMouseOut"}) {
        for (bool isClosing : {false, true}) {
            NativeWindow window;
            bool isDone = false;
            prepare = [&](NativeObject& object) {
                object.on(event, [&](NativeObject&, NativeArguments const&) {
                    if (!window || std::exchange(isDone, true))
                        return;
                    if (isClosing)
                        window.close();
                    else
                        window.setText("gone");
                });
            };
            window = host.window();
            window.load(write("custom.html",
                              body(element() + element() + "<table><tr><td>" + element() + "</td></tr></table>")));
            window.open();
            host.serveUntil([] { return false; }, 30ms);
            if (window.isOpen() && !isDone) {
                move(window, 10, 10);
                if (!isDone)
                    press(window, 10, 10);
                if (!isDone)
                    move(window, -5, -5);
            }
            window.close();
            EXPECT_TRUE(isDone) << event;
        }
    }
}

TEST_F(CustomElements, AreCopiedWithoutTheirInstance)
{
    NativeWindow window = load(element("", "<param name=a value=1>"));
    withNode(window, [&](guiHtmlCustom& original) {
        {
            std::unique_ptr<guiHtml> copy(original.Clone(nullptr));
            auto& custom = static_cast<guiHtmlCustom&>(*copy);
            EXPECT_EQ(custom.getCompName(), sstring("Probe"));
            EXPECT_EQ(custom.getParams().size(), 1u);
            EXPECT_FALSE(custom.hasInstance());
        }
        EXPECT_TRUE(original.hasInstance());
    });
    EXPECT_EQ(window.control("probe"), last);
}

TEST_F(CustomElements, TakeNameAndParametersInEitherOrder)
{
    NativeWindow window = load("<table name=cell><tr><td></td></tr></table>");
    onGuiThread(window, [&](guiHtmlBase* root) {
        auto* custom = new guiHtmlCustom;
        custom->setString(kStringName, sstring("probe"));
        root->append(custom);
        custom->setParam(sstring("before"), sstring("1"));
        custom->setCompName(sstring("Probe"));
        custom->setParam(sstring("behind"), sstring("2"));
    });
    ASSERT_TRUE(last);
    EXPECT_EQ(last->get("before"), NativeValue("1"));
    EXPECT_EQ(last->get("behind"), NativeValue("2"));
}

TEST_F(CustomElements, SetTheirSizeInPixelsOrPercent)
{
    NativeWindow window = open(element());
    auto request = [&] {
        std::string text;
        withNode(window, [&](guiHtmlCustom& custom) {
            auto& fixed = custom.m.fixed;
            text = std::to_string(fixed.unitX) + ":" + std::to_string(fixed.x) + " " + std::to_string(fixed.unitY) +
                   ":" + std::to_string(fixed.y) + " " + std::to_string(custom.m.rect.width);
        });
        return text;
    };
    EXPECT_EQ(request(), "1:100 1:60 100");
    last->call("setSize", {120});
    EXPECT_EQ(request(), "1:120 1:60 120");
    last->call("setSize", {"50%", 30});
    EXPECT_EQ(request().substr(0, 9), "2:50 1:30");
    last->call("setSize", {"70", "25%"});
    EXPECT_EQ(request(), "1:70 2:25 70");
    for (NativeArguments const& wrong :
         {NativeArguments{}, NativeArguments{true}, NativeArguments{90, NativeValue()}, NativeArguments{90, 90, 90}}) {
        last->call("setSize", wrong);
        EXPECT_EQ(request(), "1:70 2:25 70");
    }
    last->call("setSize", {-5});
    EXPECT_EQ(request().substr(0, 3), "1:0");
}
