// tests/script/customelements-drawing_test.cpp: what a window shows of what custom elements draw.
#include "tests/script/customelements.h"

#include "controls/guiimage.h"

#include <QPainter>

TEST_F(CustomElements, AreDrawnBeforeTheWindowIsShownAndNotAgainByPainting)
{
    bool wasVisible = true;
    NativeWindow window;
    paintsWith([&](NativeObject& toolkit) {
        if (paints == 1)
            onGuiThread(window, [&](guiHtmlBase* root) { wasVisible = root->getWidget()->isVisible(); });
        toolkit.call("fill", {"red"});
    });
    window = load(element());
    EXPECT_EQ(paints, 0);
    EXPECT_TRUE(window.open());
    EXPECT_EQ(paints, 1);
    EXPECT_FALSE(wasVisible);
    settle(window);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(at(shot(window), 50, 30), kRed);
    EXPECT_EQ(paints, 1);
}

TEST_F(CustomElements, FindColourAndRectangleAtTheBeginningOfEachDrawing)
{
    std::vector<std::string> seen;
    paintsWith([&](NativeObject& toolkit) {
        NativeObjectRef area = toolkit.get("rect").object();
        seen.push_back(toolkit.get("color").text() + " " + area->get("left").text() + " " + area->get("top").text() +
                       " " + area->get("width").text() + " " + area->get("height").text() + " " +
                       toolkit.get("bold").text() + toolkit.get("fontSize").text());
        toolkit.set("color", "red");
        toolkit.set("bold", true);
        toolkit.set("fontSize", 30);
    });
    NativeWindow window = open(element("border=2"));
    last->get("toolkit").object()->call("repaint");
    std::this_thread::sleep_for(20ms);
    settle(window);
    host.serveUntil([&] { return seen.size() >= 2; }, 2s);
    EXPECT_EQ(seen, (std::vector<std::string>(2, "#000000 0 0 96 56 false0")));
}

TEST_F(CustomElements, FillTheirAreaOrAPartInTheColourAsked)
{
    paintsWith([&](NativeObject& toolkit) {
        toolkit.call("fill", {"#00FF00"});
        toolkit.call("fill", {"#FF0000", rect(10, 10, 20, 20)});
        toolkit.set("color", "#0000FF");
        toolkit.call("fill", {"", rect(40, 10, 500, 20)});
        toolkit.set("color", 5);
        toolkit.call("fill", {"", rect(0, 40, 10, 10)});
        // Wrong ones draw nothing.
        toolkit.call("fill");
        toolkit.call("fill", {5});
        toolkit.call("fill", {"white", 5});
        toolkit.call("fill", {"white", rect(0, 0, 100, 100), 1});
        NativeObjectRef part = host.object();
        part->set("left", 0);
        toolkit.call("fill", {"white", part});
        toolkit.call("fill", {"white", rect(0, 0, -5, 10)});
    });
    NativeWindow window = open(element("border=1 bordercolor=\"#000000\""));
    QImage const image = shot(window);
    EXPECT_EQ(at(image, 2, 2), kGreen);
    EXPECT_EQ(at(image, 11, 11), kRed);
    EXPECT_EQ(at(image, 30, 30), kRed);
    EXPECT_EQ(at(image, 31, 31), kGreen);
    EXPECT_EQ(at(image, 98, 15), kBlue);
    EXPECT_EQ(at(image, 99, 15), 0xFF000000) << "the border stays";
    EXPECT_EQ(at(image, 100, 15), kPaper);
    EXPECT_EQ(at(image, 5, 45), 0xFF000000);
}

TEST_F(CustomElements, DrawLinesInTheWidthAskedCutToTheirArea)
{
    paintsWith([&](NativeObject& toolkit) {
        toolkit.call("drawLine", {"#FF0000", 10, 20, 500, 20, 1});
        toolkit.call("drawLine", {"", 30, 0, 30, 59, 3});
        toolkit.call("drawLine", {"#0000FF", 0, 50, 10, 50});
        toolkit.call("drawLine", {"#0000FF", 0, 50, 10, 50, "1"});
        toolkit.call("drawLine", {0, 0, 50, 10, 50, 1});
        toolkit.call("drawLine", {"#0000FF", 0, 50, 10, 50, -1});
    });
    NativeWindow window = open(element());
    QImage const image = shot(window);
    EXPECT_EQ(at(image, 9, 20), kPaper);
    EXPECT_EQ(at(image, 10, 20), kRed);
    EXPECT_EQ(at(image, 99, 20), kRed);
    EXPECT_EQ(at(image, 100, 20), kPaper);
    EXPECT_EQ(at(image, 10, 19), kPaper);
    EXPECT_EQ(at(image, 10, 21), kPaper);
    for (int x : {29, 30, 31})
        EXPECT_EQ(at(image, x, 40), 0xFF000000) << x;
    EXPECT_EQ(at(image, 28, 40), kPaper);
    EXPECT_EQ(at(image, 32, 40), kPaper);
    EXPECT_EQ(at(image, 5, 50), kPaper);
}

TEST_F(CustomElements, DrawImagesWholeInAPartAndTiledFromAnOffset)
{
    QImage picture(4, 4, QImage::Format_RGB32);
    picture.fill(kGreen);
    picture.setPixel(0, 0, kRed);
    picture.setPixel(1, 0, kBlue);
    ASSERT_TRUE(picture.save(QString::fromStdString((folder / "tile.png").string())));
    NativeObjectRef image = host.create("GuiImage");
    ASSERT_EQ(image->call("loadFile", {"tile.png"}), NativeValue(true));
    paintsWith([&](NativeObject& toolkit) {
        toolkit.call("drawImage", {image, 10, 10});
        toolkit.call("drawImage", {image, 30, 10, 2, 8});
        toolkit.call("drawImage", {image, 50, 10, 400, 1});
        toolkit.call("drawImage", {image, 10, 30, 4, 4, -1, 0});
        toolkit.call("drawImage", {image, 30, 30, -1, -1, 1, 0});
        toolkit.call("drawImage", {image, 60, 40, 0, 10});
        for (NativeArguments const& wrong : {NativeArguments{image},
                                             {image, 60, 40, 4},
                                             {image, 60, 40, 4, 4, 0},
                                             {image, 60, 40, 4, 4, 0, 0, 0},
                                             {"tile.png", 60, 40},
                                             {image, "60", 40},
                                             {host.object(), 60, 40},
                                             {NativeValue(), 60, 40}})
            toolkit.call("drawImage", wrong);
    });
    NativeWindow window = open(element());
    QImage const shown = shot(window);
    EXPECT_EQ(at(shown, 10, 10), kRed);
    EXPECT_EQ(at(shown, 11, 10), kBlue);
    EXPECT_EQ(at(shown, 13, 13), kGreen);
    EXPECT_EQ(at(shown, 14, 10), kPaper);
    EXPECT_EQ(at(shown, 30, 14), kRed) << "tiled in a larger rectangle";
    EXPECT_EQ(at(shown, 32, 10), kPaper) << "cut in a smaller one";
    EXPECT_EQ(at(shown, 98, 10), kRed);
    EXPECT_EQ(at(shown, 101, 10), kPaper);
    EXPECT_EQ(at(shown, 10, 30), kBlue) << "a negative offset shows a later part";
    EXPECT_EQ(at(shown, 13, 30), kRed);
    EXPECT_EQ(at(shown, 30, 30), kGreen);
    EXPECT_EQ(at(shown, 31, 30), kRed);
    for (int x : {60, 63})
        EXPECT_EQ(at(shown, x, 40), kPaper);
}

namespace {

/// The columns from the first to the last dark pixel in some rows.
std::pair<int, int> inkBetween(QImage const& image, int top, int bottom)
{
    std::pair<int, int> ink{-1, -1};
    for (int x = 0; x < image.width() - 4; ++x)
        for (int y = top; y < bottom; ++y)
            if (qGray(image.pixel(x + 2, y + 2)) < 100) {
                ink.first = ink.first < 0 ? x : ink.first;
                ink.second = x;
            }
    return ink;
}

} // namespace

TEST_F(CustomElements, DrawTextAlignedCutAndWithItsCodes)
{
    paintsWith([&](NativeObject& toolkit) {
        toolkit.call("drawText", {"ill", rect(0, 0, 100, 18), toolkit.get("XLEFT")});
        toolkit.call("drawText", {"ill", rect(0, 20, 100, 18), toolkit.get("XCENTER")});
        toolkit.call("drawText", {"ill", rect(0, 40, 100, 18), toolkit.get("XRIGHT")});
    });
    NativeWindow window = open(element());
    QImage image = shot(window);
    auto const left = inkBetween(image, 0, 20);
    auto const middle = inkBetween(image, 20, 40);
    auto const right = inkBetween(image, 40, 60);
    EXPECT_LT(left.first, 12);
    EXPECT_NEAR(middle.first + middle.second, 99, 4);
    EXPECT_GT(right.second, 88);

    draw = [&](NativeObject& toolkit) {
        toolkit.call("drawText", {"[[#FF0000]]MMMM[[/#]]"});
        toolkit.call("drawText", {"MMMMMMMMMMMMMMMMMMM", rect(0, 30, 20, 6), 0});
        toolkit.call("drawText");
        toolkit.call("drawText", {"WWWWWWWWWWWW", 5});
        toolkit.call("drawText", {"WWWWWWWWWWWW", rect(0, 45, 100, 15), "1"});
        toolkit.call("drawText", {"WWWWWWWWWWWW", rect(0, 45, 100, 15), 1, 1});
    };
    last->get("toolkit").object()->call("repaint");
    host.serveUntil([&] { return paints == 2; }, 2s);
    settle(window);
    image = shot(window);
    bool hasRed = false;
    for (int x = 0; x < 60; ++x)
        for (int y = 0; y < 20; ++y)
            hasRed = hasRed || (qRed(at(image, x, y)) > 200 && qGreen(at(image, x, y)) < 60);
    EXPECT_TRUE(hasRed);
    EXPECT_LE(inkBetween(image, 30, 36).second, 20);
    EXPECT_EQ(inkBetween(image, 37, 60).first, -1) << "neither below the rectangle nor by wrong calls";
}

TEST_F(CustomElements, DrawTextInTheFontOfTheToolkit)
{
    std::vector<NativeObjectRef> sizes;
    paintsWith([&](NativeObject& toolkit) {
        auto measure = [&](NativeArguments args) { sizes.push_back(toolkit.call("measureText", args).object()); };
        measure({"some words to measure"});
        measure({"some words to measure", 60});
        toolkit.set("fontSize", 20);
        measure({"some words to measure"});
        toolkit.set("fontSize", 0);
        toolkit.set("bold", true);
        measure({"some words to measure"});
        measure({});
        measure({"x", "wide"});
    });
    NativeWindow window = open(element());
    ASSERT_EQ(sizes.size(), 6u);
    auto width = [&](int i) { return sizes[i]->get("width").number(); };
    auto height = [&](int i) { return sizes[i]->get("height").number(); };
    EXPECT_GT(width(0), 60);
    EXPECT_LE(width(1), 62);
    EXPECT_GE(height(1), 2 * height(0));
    EXPECT_GT(width(2), 1.5 * width(0));
    EXPECT_GT(height(2), height(0));
    EXPECT_GT(width(3), width(0));
    EXPECT_FALSE(sizes[4]);
    EXPECT_FALSE(sizes[5]);
}

TEST_F(CustomElements, DrawEllipsesAndPolygonsFilledAndAsOutlines)
{
    paintsWith([&](NativeObject& toolkit) {
        toolkit.call("drawEllipse", {"#FF0000", 0, 0, 20, 20});
        toolkit.call("drawEllipse", {"#FF0000", 30, 0, 20, 20, 2});
        toolkit.call("drawPolygon", {"#0000FF", numbers({0, 30, 20, 30, 20, 50, 0, 50})});
        NativeObjectRef pairs = host.object();
        std::vector<std::pair<int, int>> const corners{{30, 30}, {50, 30}, {50, 50}, {30, 50}};
        pairs->set("length", 4);
        for (std::size_t i = 0; i < corners.size(); ++i)
            pairs->set(std::to_string(i),
                       numbers({static_cast<double>(corners[i].first), static_cast<double>(corners[i].second)}));
        toolkit.call("drawPolygon", {"#0000FF", pairs, 1});
        toolkit.call("drawPolyline", {"#00FF00", numbers({60, 30, 80, 30, 80, 50}), 1});
        for (NativeArguments const& wrong : {NativeArguments{"#FF0000"},
                                             {"#FF0000", 5},
                                             {"#FF0000", numbers({1, 2, 3})},
                                             {"#FF0000", numbers({0, 0, 99, 59}), 0},
                                             {"#FF0000", numbers({0, 0, 99, 59}), "1"},
                                             {5, numbers({0, 0, 99, 59}), 1},
                                             {"#FF0000", host.object(), 1}})
            toolkit.call("drawPolygon", wrong);
        toolkit.call("drawEllipse", {"#FF0000", 80, 0, 20});
        toolkit.call("drawEllipse", {"#FF0000", 80, 0, 20, 20, -1});
    });
    NativeWindow window = open(element());
    QImage const image = shot(window);
    EXPECT_EQ(at(image, 10, 10), kRed);
    EXPECT_EQ(at(image, 0, 0), kPaper);
    EXPECT_EQ(at(image, 40, 10), kPaper);
    EXPECT_LT(qGreen(at(image, 40, 0)), 40) << "smooth, so nearly red";
    EXPECT_EQ(at(image, 10, 40), kBlue);
    EXPECT_EQ(at(image, 40, 40), kPaper);
    EXPECT_EQ(at(image, 30, 40), kBlue);
    EXPECT_EQ(at(image, 70, 30), kGreen);
    EXPECT_EQ(at(image, 80, 40), kGreen);
    EXPECT_EQ(at(image, 70, 40), kPaper) << "a polyline stays open";
    EXPECT_EQ(at(image, 90, 10), kPaper);
    EXPECT_EQ(at(image, 55, 33), kPaper) << "wrong ones draw nothing";
}

TEST_F(CustomElements, DrawNothingOutsideOfTheirPaintHandler)
{
    prepare = [&](NativeObject& object) {
        object.on("eMouseDown", [](NativeObject& self, NativeArguments const&) {
            self.get("toolkit").object()->call("fill", {"#FF0000"});
        });
        object.on("eCreate", [](NativeObject& self, NativeArguments const&) {
            self.get("toolkit").object()->call("fill", {"#FF0000"});
        });
    };
    NativeWindow window = open(element());
    press(window, 5, 5);
    last->get("toolkit").object()->call("fill", {"#FF0000"});
    settle(window);
    EXPECT_EQ(at(shot(window), 50, 30), kPaper);
    host.create("GuiToolkit")->call("fill", {"#FF0000"});
    host.create("GuiToolkit")->call("repaint");
}

TEST_F(CustomElements, AreDrawnAgainWhenTheyAskForIt)
{
    paintsWith([&](NativeObject& toolkit) {
        toolkit.call("fill", {paints == 1 ? "#FF0000" : paints == 2 ? "#00FF00" : "#0000FF"});
    });
    NativeWindow window = open(element());
    NativeObjectRef toolkit = last->get("toolkit").object();
    auto drawn = [&](int count) {
        host.serveUntil([&] { return paints >= count; }, 2s);
        settle(window);
        return paints.load();
    };
    EXPECT_EQ(at(shot(window), 50, 30), kRed);
    toolkit->call("repaint");
    EXPECT_EQ(drawn(2), 2);
    EXPECT_EQ(at(shot(window), 50, 30), kGreen);
    toolkit->call("repaint", {10, 10, 20, 20});
    EXPECT_EQ(drawn(3), 3);
    toolkit->call("repaint", {rect(10, 10, 20, 20)});
    EXPECT_EQ(drawn(4), 4);
    NativeObjectRef part = host.object();
    part->set("left", 1);
    for (NativeArguments const& wrong : {NativeArguments{1}, {"x"}, {1, 2, 3}, {1, 2, 3, "4"}, {1, 2, 3, 4, 5}, {part}})
        toolkit->call("repaint", wrong);
    host.serveUntil([] { return false; }, 60ms);
    EXPECT_EQ(paints, 4);
    for (int i = 0; i < 1000; ++i)
        toolkit->call("repaint");
    host.serveUntil([] { return false; }, 100ms);
    EXPECT_LE(paints, 12) << "requests join";
}

TEST_F(CustomElements, RepaintOnlyThePartThatWasAskedFor)
{
    paintsWith([&](NativeObject& toolkit) { toolkit.call("fill", {paints == 1 ? "#FF0000" : "#00FF00"}); });
    NativeWindow window = open(element());
    withNode(window, [](guiHtmlCustom& custom) {
        guiRect part{10, 20, 10, 20};
        custom.invalidate(&part);
    });
    host.serveUntil([&] { return paints == 2; }, 2s);
    settle(window);
    QImage buffer;
    withNode(window, [&](guiHtmlCustom& custom) {
        QCoreApplication::processEvents();
        auto* widget = static_cast<guiWidget*>(custom.getTopLevelWidget());
        guiRect place;
        custom.getRectInWidget(&place);
        buffer = widget->backBuffer.toImage().copy(place.left - 2, place.top - 2, 104, 64);
    });
    EXPECT_EQ(at(buffer, 15, 15), kGreen);
    EXPECT_EQ(at(buffer, 50, 40), kRed) << "what is outside of the part is as it was";
}

TEST_F(CustomElements, AreDrawnAnewInAnotherSizeAndNotWithoutAny)
{
    std::string size;
    paintsWith([&](NativeObject& toolkit) {
        NativeObjectRef area = toolkit.get("rect").object();
        size = area->get("width").text() + "x" + area->get("height").text();
        toolkit.call("fill", {"#FF0000"});
    });
    NativeWindow window = open(element());
    EXPECT_EQ(size, "100x60");
    last->call("setSize", {40, 30});
    onGuiThread(window, [](guiHtmlBase* root) { root->getWidget()->repaint(); });
    host.serveUntil([&] { return paints >= 2; }, 2s);
    settle(window);
    EXPECT_EQ(size, "40x30");
    QImage const image = shot(window);
    EXPECT_EQ(at(image, 39, 29), kRed);
    EXPECT_EQ(at(image, 40, 29), kPaper);
    int const before = paints;
    last->call("setSize", {0, 0});
    last->get("toolkit").object()->call("repaint");
    onGuiThread(window, [](guiHtmlBase* root) { root->getWidget()->repaint(); });
    host.serveUntil([] { return false; }, 50ms);
    EXPECT_EQ(paints, before);
}

TEST_F(CustomElements, OutOfThePaintedRegionAskForNothing)
{
    paintsWith([&](NativeObject& toolkit) { toolkit.call("fill", {"#FF0000"}); });
    NativeWindow window = load(element());
    withNode(window, [](guiHtmlCustom& custom) {
        QImage image(300, 200, QImage::Format_RGB32);
        QPainter painter(&image);
        QRegion const elsewhere(200, 150, 10, 10);
        QRegion const nothing(0, 0, 0, 0);
        custom.paintTo(&painter, 0, 0, nullptr, &elsewhere);
        custom.paintTo(&painter, 0, 0, nullptr, &nothing);
        EXPECT_FALSE(custom.isDrawingAsked());
    });
    EXPECT_EQ(paints, 0);
}

TEST_F(CustomElements, ShowTheirBackgroundAndBorderUnderTheDrawing)
{
    QImage picture(2, 2, QImage::Format_RGB32);
    picture.fill(kGreen);
    ASSERT_TRUE(picture.save(QString::fromStdString((folder / "paper.png").string())));
    paintsWith([&](NativeObject& toolkit) { toolkit.call("fill", {"#FF0000", rect(0, 0, 10, 10)}); });
    NativeWindow window =
        open(element("background=\"paper.png\" bgcolor=\"#0000FF\" border=1 bordercolor=\"#000000\""));
    QImage image = shot(window);
    EXPECT_EQ(at(image, 0, 0), 0xFF000000);
    EXPECT_EQ(at(image, 5, 5), kRed);
    EXPECT_EQ(at(image, 50, 30), kGreen);
    NativeWindow plain = open(element("bgcolor=\"#0000FF\""));
    image = shot(plain);
    EXPECT_EQ(at(image, 5, 5), kRed);
    EXPECT_EQ(at(image, 50, 30), kBlue);
}

TEST_F(CustomElements, CanBeDrawnByAToolkitThatIsOpenedOnAPainter)
{
    prepare = nullptr;
    NativeWindow window = load(element());
    NativeObjectRef toolkit = last->get("toolkit").object();
    QImage image(100, 60, QImage::Format_RGB32);
    image.fill(kPaper);
    withNode(window, [&](guiHtmlCustom& custom) {
        QPainter painter(&image);
        QRegion region(0, 0, 50, 60);
        guiRect area{20, 40, 10, 30};
        OpenToolkit(toolkit.get(), &custom, &painter, &region, &area);
        guiToolkit_fill(toolkit->getPrivate(), sstring("#FF0000"), nullptr);
        guiToolkit_drawLine(toolkit->getPrivate(), sstring("#0000FF"), 0, 5, 39, 5, 1);
        CloseToolkit(toolkit.get());
        guiToolkit_fill(toolkit->getPrivate(), sstring("#00FF00"), nullptr);
    });
    EXPECT_EQ(image.pixel(20, 10), kRed);
    EXPECT_EQ(image.pixel(20, 15), kBlue);
    EXPECT_EQ(image.pixel(49, 39), kRed);
    EXPECT_EQ(image.pixel(50, 39), kPaper) << "outside of the region";
    EXPECT_EQ(image.pixel(49, 40), kPaper);
}

TEST_F(CustomElements, WhoseToolkitCannotBeBuiltAreReported)
{
    NativeWindow window = host.window();
    std::string const text = printed([&] {
        onGuiThread(window, [](guiHtmlBase*) {
            guiHtmlCustom lonely;
            EXPECT_EQ(BuildToolkit(&lonely), nullptr);
        });
    });
    EXPECT_EQ(text, "BuildToolkit() - failed to construct toolkit object\n");
}

TEST_F(CustomElements, ThatThrowWhileTheyDrawAreReportedAndShowWhatTheyHave)
{
    paintsWith([&](NativeObject& toolkit) {
        toolkit.call("fill", {"#FF0000"});
        throw std::runtime_error("out of paint");
    });
    NativeWindow window;
    std::string const text = printed([&] { window = open(element()); });
    EXPECT_EQ(text, "Probe.ePaint() threw an exception: out of paint\n");
    EXPECT_EQ(at(shot(window), 50, 30), kRed);
}
