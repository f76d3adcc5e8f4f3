// tests/script/controlmethods_test.cpp: controls as script sees them, through the C++ host: the methods of their
// objects, the handlers that a click calls, and their values in the form.
#include "controls/guihtmlimage.h"
#include "controls/guiimage.h"
#include "controls/guiimagec.h"
#include "controls/guimovie.h"
#include "tests/script/controlscript.h"
#include "tests/support/moviefile.h"

#include <QImage>
#include <QPixmapCache>
#include <QPushButton>
#include <atomic>
#include <sstream>
#include <thread>

namespace {

/// What was logged about pictures.
std::string loggedAboutPictures()
{
    std::istringstream log(testing::internal::GetCapturedStderr());
    std::string lines;
    for (std::string line; std::getline(log, line);)
        if (line.starts_with("guiLoadImage"))
            lines += line + "\n";
    return lines;
}

} // namespace

TEST_F(ControlScript, ButtonsAreCheckedAndUnchecked)
{
    NativeWindow window = open("<input type=checkbox name=c value=yes>");
    NativeObjectRef box = window.control("c");
    ASSERT_TRUE(box);
    EXPECT_EQ(box->call("isChecked"), NativeValue(false));
    box->call("check");
    EXPECT_EQ(box->call("isChecked"), NativeValue(true));
    box->call("check", {false});
    EXPECT_EQ(box->call("isChecked"), NativeValue(false));
    box->call("check", {1});
    EXPECT_EQ(box->call("isChecked"), NativeValue(true));
    box->call("check", {"x"});
    box->call("check", {false, false});
    EXPECT_EQ(box->call("isChecked"), NativeValue(true));
    box->call("uncheck");
    EXPECT_EQ(box->call("isChecked"), NativeValue(false));
}

TEST_F(ControlScript, OneObjectStandsForAControlAsLongAsItLives)
{
    NativeWindow window = open("<input type=button name=b>");
    NativeObjectRef button = window.control("b");
    EXPECT_EQ(window.control("B").get(), button.get());
    EXPECT_EQ(pGUI->findNode(button.get()), root->getNamed("b"));
    EXPECT_EQ(button->get("name"), NativeValue("b"));
    EXPECT_EQ(button->get("window").object().get(), window.object().get());
    window.setText("<input type=checkbox name=b>");
    EXPECT_EQ(pGUI->findNode(button.get()), nullptr);
    EXPECT_EQ(button->call("isEnabled"), NativeValue(true)); // the element that has the name now
    button->call("check");
    EXPECT_EQ(button->call("isChecked"), NativeValue(true));
    EXPECT_EQ(window.control("b")->call("isChecked"), NativeValue(true));
}

TEST_F(ControlScript, AClickCallsThePagesHandler)
{
    NativeWindow window = open("<form name=f action=event://onSend/all><input type=submit name=s></form>"
                               "<input type=button name=b onclick=event://onB/1/two>");
    std::vector<std::string> calls;
    window.on("onSend", [&](NativeWindow&, NativeArguments const& args) { calls.push_back(args[1].text()); });
    window.on("onB", [&](NativeWindow&, NativeArguments const& args) { calls.push_back(args[2].text()); });
    click("s", [&] { return calls.size() == 1; });
    click("b", [&] { return calls.size() == 2; });
    EXPECT_EQ(calls, (std::vector<std::string>{"all", "two"}));
}

TEST_F(ControlScript, AClickCallsTheControlsOwnHandlerFirst)
{
    NativeWindow window = open("<input type=button name=b onclick=event://onB>");
    std::string called;
    window.on("onB", [&](NativeWindow&, NativeArguments const&) { called = "page"; });
    NativeObjectRef button = window.control("b");
    NativeObject* source = nullptr;
    button->on("onB", [&](NativeObject& self, NativeArguments const&) {
        called = "control";
        source = &self;
    });
    click("b", [&] { return !called.empty(); });
    EXPECT_EQ(called, "control");
    EXPECT_EQ(source, button.get());
}

TEST_F(ControlScript, AClickThatReplacesThePageOrClosesTheWindowEndsWell)
{
    NativeWindow window = open("<input type=checkbox name=b onclick=event://onB>");
    int calls = 0;
    window.on("onB", [&](NativeWindow& self, NativeArguments const&) {
        self.setText(++calls == 1 ? "<input type=radio name=b onclick=event://onB>" : "gone");
        if (calls == 2)
            self.close();
    });
    click("b", [&] { return calls == 1; });
    EXPECT_EQ(node<guiHtmlControlButton>("b").getButtonType(), kButtonRadio);
    click("b", [&] { return calls == 2 && !window.isOpen(); });
}

TEST_F(ControlScript, FormValuesOfCheckBoxesAreTheirTextOrNull)
{
    NativeWindow window = open("<input type=checkbox name=c value=yes checked><input type=checkbox name=d value=no>"
                               "<input type=submit name=s value=Send>");
    writeForm();
    EXPECT_EQ(form("c"), NativeValue("yes"));
    EXPECT_EQ(form("d"), NativeValue());
    EXPECT_FALSE(formObject().hasProperty("s"));
    formObject().set("d", "No"); // without regard to case
    formObject().set("c", 1);    // no string: unchecked
    readForm();
    EXPECT_EQ(node<guiHtmlControlButton>("d").isChecked(), 1);
    EXPECT_EQ(node<guiHtmlControlButton>("c").isChecked(), 0);
    formObject().remove("d");
    readForm(); // no property: unchanged
    EXPECT_EQ(node<guiHtmlControlButton>("d").isChecked(), 1);
    onGuiThread([this] { root->eraseFormProperty(root->getFormObject()); });
    EXPECT_FALSE(formObject().hasProperty("c"));
}

TEST_F(ControlScript, FormValueOfRadioButtonsIsTheCheckedOnesWhateverTheOrder)
{
    for (char const* page : {"<input type=radio name=r value=a><input type=radio name=r value=b checked>",
                             "<input type=radio name=r value=b checked><input type=radio name=r value=a>"}) {
        NativeWindow window = open(page);
        writeForm();
        EXPECT_EQ(form("r"), NativeValue("b"));
        formObject().set("r", "a");
        readForm();
        writeForm();
        EXPECT_EQ(form("r"), NativeValue("a"));
    }
}

TEST_F(ControlScript, FormValuesOfFieldsAreTheirTexts)
{
    NativeWindow window = open("<input type=text name=t value=one><textarea name=a>two</textarea>"
                               "<input type=hidden name=h value=three><input type=text value=nameless>");
    writeForm();
    EXPECT_EQ(form("t").text() + form("a").text() + form("h").text(), "onetwothree");
    for (char const* name : {"t", "a", "h"})
        formObject().set(name, "new");
    readForm();
    EXPECT_EQ(std::string(node<guiHtmlControlEdit>("t").getText().c_str()), "new");
    EXPECT_EQ(std::string(node<guiHtmlControl>("h").getText().c_str()), "new");
    formObject().set("t", 5); // no string: unchanged
    readForm();
    window.control("h")->call("setText", {"from script"});
    writeForm();
    EXPECT_EQ(form("t").text() + form("h").text(), "newfrom script");
    onGuiThread([this] { root->eraseFormProperty(root->getFormObject()); });
    for (char const* name : {"t", "a", "h"})
        EXPECT_FALSE(formObject().hasProperty(name)) << name;
}

TEST_F(ControlScript, ListsHaveMethodsAndAValue)
{
    NativeWindow window = open("<select name=s size=3><option value=a>Alpha</option><option value=b>Beta</option>"
                               "</select>");
    NativeObjectRef list = window.control("s");
    list->call("selectItem", {"B"});
    writeForm();
    EXPECT_EQ(form("s"), NativeValue("b"));
    list->call("addItem", {"c"});
    list->call("addItem", {"d", "Delta"});
    list->call("addItem", {"e", 5});
    list->call("addItem", {7});
    list->call("removeItem", {"a"});
    list->call("removeItem", {"b", "c"});
    auto& select = node<guiHtmlControlList>("s");
    ASSERT_EQ(select.getEntryCount(), 4u);
    EXPECT_EQ(select.getEntry(0), nullptr);
    EXPECT_EQ(std::string(select.getEntry(3)->text.c_str()), "Delta");
    formObject().set("s", "b");
    readForm();
    list->call("selectItem", {"b", false});
    list->call("selectItem", {"b", "no switch"});
    onGuiThread([this] { root->eraseFormProperty(root->getFormObject()); });
    EXPECT_FALSE(formObject().hasProperty("s"));
}

TEST_F(ControlScript, FlexListsHaveMethodsAndAValue)
{
    NativeWindow window = open("<object classid=checklist name=f><option value=a>A</option><option value=b>B</option>"
                               "</object>");
    NativeObjectRef flex = window.control("f");
    flex->call("checkItem", {"a"});
    EXPECT_EQ(flex->call("isItemChecked", {"A"}), NativeValue(true));
    flex->call("uncheckItem", {"a"});
    flex->call("checkItem", {"b", true});
    EXPECT_EQ(flex->call("isItemChecked", {"a"}), NativeValue(false));
    EXPECT_EQ(flex->call("isItemChecked", {"b"}), NativeValue(true));
    writeForm();
    EXPECT_EQ(form("f"), NativeValue());
    flex->call("selectItem", {"b"});
    EXPECT_EQ(flex->call("isItemSelected", {"b"}), NativeValue(true));
    writeForm();
    EXPECT_EQ(form("f"), NativeValue("b"));
    formObject().set("f", NativeValue());
    readForm();
    EXPECT_EQ(flex->call("isItemSelected", {"b"}), NativeValue(false));
    formObject().set("f", "a");
    readForm();
    EXPECT_EQ(flex->call("isItemSelected", {"a"}), NativeValue(true));
    flex->call("unselectItem", {"a"});
    flex->call("disableItem", {"a"});
    EXPECT_EQ(flex->call("isItemEnabled", {"a"}), NativeValue(false));
    flex->call("enableItem", {"a", 1});
    EXPECT_EQ(flex->call("isItemEnabled", {"a"}), NativeValue(true));
    flex->call("addItem", {"c", "C", "a", "radiobutton"});
    EXPECT_EQ(node<guiHtmlControlFlex>("f").findItem("c")->entryType, kFlexRadio);
    flex->call("collapseItem", {"a"});
    EXPECT_EQ(flex->call("isItemExpanded", {"a"}), NativeValue(false));
    flex->call("expandItem", {"a"});
    EXPECT_EQ(flex->call("isItemExpanded", {"a"}), NativeValue(true));
    flex->call("setColumnText", {2, "Two"});
    flex->call("setColumnWidth", {1, 80});
    flex->call("setItemText", {"c", 2, "x"});
    flex->call("setHeaderEnabled", {true});
    flex->call("scrollToTop");
    flex->call("removeItem", {"b"});
    EXPECT_EQ(node<guiHtmlControlFlex>("f").getItem(1), nullptr);
    EXPECT_EQ(flex->call("isItemChecked", {5}), NativeValue(false));
}

TEST_F(ControlScript, MenusHaveMethodsAndFireTheMenuEvent)
{
    NativeWindow window = open("<object classid=menu name=m><menu name=file value=File><param name=save value=Save "
                               "unchecked></menu></object>");
    NativeObjectRef menu = window.control("m");
    menu->call("checkItem", {"Save"});
    EXPECT_EQ(menu->call("isItemChecked", {"save"}), NativeValue(true));
    menu->call("uncheckItem", {"save"});
    EXPECT_EQ(menu->call("isItemChecked", {"save"}), NativeValue(false));
    menu->call("disableItem", {"save"});
    EXPECT_EQ(menu->call("isItemEnabled", {"save"}), NativeValue(false));
    menu->call("enableItem", {"save"});
    menu->call("setItemText", {"save", "Save all"});
    EXPECT_EQ(std::string(node<guiHtmlControlMenu>("m").findItem("save")->text.c_str()), "Save all");
    std::string chosen;
    window.on("eMenu", [&](NativeWindow&, NativeArguments const& args) { chosen = args[1].text(); });
    menu->call("activateItem", {"SAVE"});
    EXPECT_EQ(chosen, "save");
}

TEST_F(ControlScript, ANamelessControlsObjectNeverStandsForTheWindow)
{
    NativeWindow window = open("<input type=button onclick=event://onB><b name=x>text</b>");
    guiHtml* button = root->getChild(0);
    ScriptObject* object = button->getCustomObject();
    ASSERT_NE(object, nullptr);
    NativeObjectRef held(static_cast<NativeObject*>(object));
    held->call("setText", {"label"});
    EXPECT_EQ(std::string(static_cast<guiHtmlControl*>(button)->getText().c_str()), "label");
    held->call("setCaption", {"caption"});
    EXPECT_EQ(std::string(static_cast<guiHtmlControl*>(button)->getText().c_str()), "caption");
    EXPECT_EQ(static_cast<QPushButton*>(button->getChildWidget())->text(), "caption");
    window.setText("other");
    EXPECT_EQ(held->call("setText", {"<p>replaced</p>"}), NativeValue(false));
}

TEST_F(ControlScript, PicturesAreKeptByNameAndTheirFaultsLogged)
{
    QImage(5, 3, QImage::Format_RGB32).save(QString::fromStdString((folder / "good.png").string()));
    write("bad.png", "no picture");
    open("x");
    onGuiThread([this] {
        QPixmap image;
        testing::internal::CaptureStderr();
        EXPECT_EQ(guiLoadImage(nullptr, (folder / "good.png").c_str(), image), 1);
        EXPECT_EQ(image.size(), QSize(5, 3));
        qint64 const decoded = guiLoadImage(nullptr, (folder / "good.png").c_str()).cacheKey();
        EXPECT_EQ(decoded, image.cacheKey()); // kept, though nobody shows it
        guiFreeImages();
        EXPECT_NE(guiLoadImage(nullptr, (folder / "good.png").c_str()).cacheKey(), decoded);
        fs::remove(folder / "good.png");
        EXPECT_TRUE(guiLoadImage(nullptr, (folder / "good.png").c_str()).isNull());
        EXPECT_EQ(guiLoadImage(nullptr, (folder / "bad.png").c_str(), image), 0);
        EXPECT_EQ(loggedAboutPictures(), "guiLoadImage() - failed to load image " + (folder / "good.png").string() +
                                             "; file not found\nguiLoadImage() - failed to load image " +
                                             (folder / "bad.png").string() + "; bad format\n");
        EXPECT_EQ(guiLoadBrokenImage(nullptr).size(), QSize(24, 24));
        EXPECT_LE(QPixmapCache::cacheLimit(), 10240);
    });
}

TEST_F(ControlScript, ImagesTakeTheSizeOfTheirPicture)
{
    QImage(50, 30, QImage::Format_RGB32).save(QString::fromStdString((folder / "good.png").string()));
    testing::internal::CaptureStderr();
    NativeWindow window = open("<img src=good.png name=i border=2><img src=none.png name=b>");
    EXPECT_EQ(loggedAboutPictures(), "guiLoadImage() - failed to load image " + (folder / "none.png").string() +
                                         "; file not found in " + (folder / "page.html").string() + ":1\n");
    auto& image = node<guiHtmlImage>("i");
    EXPECT_EQ(image.getPreferredWidth(), 54);
    EXPECT_EQ(image.getHeightEstimate(0), 34);
    EXPECT_EQ(image.m.rect.width, 54);
    EXPECT_TRUE(image.isLoaded());
    EXPECT_FALSE(node<guiHtmlImage>("b").isLoaded());
    EXPECT_EQ(node<guiHtmlImage>("b").m.rect.width, 24);
    window.control("i")->call("loadFile", {"none.png"});
    EXPECT_EQ(image.m.rect.width, 28);
}

TEST_F(ControlScript, MoviesPlayTheirFramesAndTellOfTheirEnd)
{
    QByteArray const file = avz(avzFrame(20, png(40, 30, Qt::red)) + avzFrame(20, png(40, 30, Qt::green)));
    write("clip.avz", std::string(file.constData(), static_cast<std::size_t>(file.size())));
    int ends = 0;
    NativeWindow window = open("<img src=clip.avz name=i paused>");
    window.on("eStopped", [&](NativeWindow&, NativeArguments const&) { ++ends; });
    auto& image = node<guiHtmlImage>("i");
    EXPECT_EQ(image.m.rect.width, 40);
    EXPECT_TRUE(image.isMovie() && image.getMovie()->isValid());
    EXPECT_FALSE(image.getMovie()->isPlaying());
    window.control("i")->call("play");
    EXPECT_TRUE(host.serveUntil([&] { return ends == 1; }, 5s));
    EXPECT_FALSE(image.getMovie()->isPlaying());
    window.control("i")->call("play");
    EXPECT_TRUE(host.serveUntil([&] { return ends == 2; }, 5s));
}

TEST_F(ControlScript, MoviesThatLoopPlayUntilTheyGo)
{
    QByteArray const file = avz(avzFrame(5, png(4, 3, Qt::red)) + avzFrame(5, png(4, 3, Qt::green)));
    write("clip.avz", std::string(file.constData(), static_cast<std::size_t>(file.size())));
    NativeWindow window = open("<img src=clip.avz name=i looped><img src=clip.avz name=once>");
    bool isStopped = false;
    window.on("eStopped", [&](NativeWindow&, NativeArguments const&) { isStopped = true; });
    auto& image = node<guiHtmlImage>("i");
    EXPECT_TRUE(host.serveUntil([&] { return !node<guiHtmlImage>("once").getMovie()->isPlaying(); }, 5s));
    EXPECT_TRUE(image.getMovie()->isPlaying());
    window.setText("gone"); // ends the player
    window.close();
}

TEST_F(ControlScript, MoviesWithoutFramesEndAtOnce)
{
    write("tone.wav", "bytes that are not looked at");
    int ends = 0;
    NativeWindow window = open("<img src=tone.wav name=i paused looped>");
    window.on("eStopped", [&](NativeWindow&, NativeArguments const&) { ++ends; });
    auto& image = node<guiHtmlImage>("i");
    ASSERT_NE(image.getMovie(), nullptr);
    EXPECT_TRUE(image.getMovie()->isValid() && image.getMovie()->hasAudio());
    EXPECT_FALSE(image.getMovie()->hasVideo());
    EXPECT_EQ(image.m.rect.width, 0);
    window.control("i")->call("play");
    EXPECT_TRUE(host.serveUntil([&] { return ends == 1; }, 5s));
    onGuiThread([&] {
        guiMovie movie(nullptr, (folder / "tone.wav").c_str());
        EXPECT_TRUE(movie.isValid());
        movie.play(1); // over and over again is over at once, too
        movie.stop();
        EXPECT_FALSE(movie.isPlaying());
    });
}

namespace {

void noteEnd(guiMovie*, void* data) { ++*static_cast<std::atomic<int>*>(data); }

} // namespace

TEST_F(ControlScript, MoviesArePausedAndResumedWhereTheyWere)
{
    QByteArray frames;
    for (int i = 0; i < 4; ++i)
        frames += avzFrame(10, png(2, 2, Qt::red));
    QByteArray const file = avz(frames);
    write("clip.avz", std::string(file.constData(), static_cast<std::size_t>(file.size())));
    write("clip.bin", std::string(file.constData(), static_cast<std::size_t>(file.size())));
    open("x");
    std::atomic<int> ends{0};
    onGuiThread([&] {
        guiMovie movie;
        EXPECT_EQ(movie.loadFile(nullptr, (folder / "clip.avz").c_str()), 1);
        movie.onStopped(noteEnd, &ends);
        movie.pause();
        movie.resume();
        EXPECT_FALSE(movie.isPlaying()) << "that starts nothing";
        movie.play(1);
        movie.pause();
        std::this_thread::sleep_for(80ms);
        EXPECT_TRUE(movie.isPlaying());
        EXPECT_EQ(ends, 0);
        movie.play(0); // goes on, and ends behind the last frame
        for (int i = 0; i < 500 && movie.isPlaying(); ++i)
            std::this_thread::sleep_for(10ms);
        EXPECT_FALSE(movie.isPlaying());
        movie.stop();
        EXPECT_EQ(ends, 1);
        movie.play(0); // from the first frame again; the callback was for one end only
        movie.stop();
        EXPECT_EQ(ends, 1);
        movie.onStopped(noteEnd, &ends);
        movie.play(1);
        movie.stop(); // an end as well
        EXPECT_EQ(ends, 2);
        movie.freeMovie();
        EXPECT_FALSE(movie.isValid());
        movie.play(1);
        EXPECT_FALSE(movie.isPlaying());
        testing::internal::CaptureStderr();
        EXPECT_EQ(movie.loadFile(nullptr, (folder / "clip.bin").c_str()), 0); // its name is not a movie's
        EXPECT_EQ(testing::internal::GetCapturedStderr(),
                  "guiMovie::loadFile() - failed to load movie " + (folder / "clip.bin").string() + "; bad format\n");
    });
}

TEST_F(ControlScript, ANewSourceEndsTheMovieAndTakesItsPlace)
{
    QByteArray const file = avz(avzFrame(5, png(4, 3, Qt::red)) + avzFrame(5, png(4, 3, Qt::green)));
    write("clip.avz", std::string(file.constData(), static_cast<std::size_t>(file.size())));
    QImage(50, 30, QImage::Format_RGB32).save(QString::fromStdString((folder / "good.png").string()));
    NativeWindow window = open("<img src=clip.avz name=i looped>");
    NativeObjectRef control = window.control("i");
    auto& image = node<guiHtmlImage>("i");
    EXPECT_TRUE(host.serveUntil([&] { return image.getMovie()->isPlaying(); }, 5s));
    EXPECT_EQ(control->call("loadFile", {"good.png"}), NativeValue(true));
    EXPECT_EQ(image.getMovie(), nullptr);
    EXPECT_FALSE(image.isMovie());
    EXPECT_EQ(image.m.rect.width, 50);
    EXPECT_EQ(control->call("play"), NativeValue()); // no movie
    EXPECT_EQ(control->call("loadFile", {"clip.avz"}), NativeValue(true));
    EXPECT_TRUE(image.isMovie() && image.getMovie()->isPlaying()); // at once, as its window is on the screen
    EXPECT_EQ(image.m.rect.width, 4);
    EXPECT_EQ(control->call("play", {"x"}), NativeValue());
    window.close();
}

TEST_F(ControlScript, MissingAndBrokenMoviesAreNamedAndShowNothing)
{
    write("bad.avi", "RIFF");
    testing::internal::CaptureStderr();
    NativeWindow window = open("<img src=bad.avi name=i>");
    std::string const log = testing::internal::GetCapturedStderr();
    EXPECT_NE(log.find("guiMovie::loadFile() - failed to load movie " + (folder / "bad.avi").string() +
                       "; bad format in " + (folder / "page.html").string() + ":1\n"),
              std::string::npos)
        << log;
    EXPECT_FALSE(node<guiHtmlImage>("i").getMovie()->isValid());
    EXPECT_EQ(node<guiHtmlImage>("i").m.rect.width, 0);
}

TEST_F(ControlScript, LoadedPicturesHaveTheirSizeAndStayWhenTheNextFails)
{
    QImage(5, 3, QImage::Format_RGB32).save(QString::fromStdString((folder / "good.png").string()));
    open("x");
    NativeObjectRef image = host.create("GuiImage");
    ASSERT_TRUE(image);
    onGuiThread([&] { EXPECT_EQ(guiImage_getPixmap(image.get()), nullptr); });
    EXPECT_EQ(image->call("loadFile", {"good.png"}), NativeValue(true));
    EXPECT_EQ(image->get("width"), NativeValue(5));
    EXPECT_EQ(image->get("height"), NativeValue(3));
    EXPECT_EQ(image->call("loadFile", {"none.png"}), NativeValue(false));
    EXPECT_EQ(image->call("loadFile", {7}), NativeValue(false));
    EXPECT_EQ(image->call("loadFile", {"good.png", 1}), NativeValue(false));
    EXPECT_EQ(image->get("width"), NativeValue(5));
    onGuiThread([&] { EXPECT_EQ(guiImage_getPixmap(image.get())->size(), QSize(5, 3)); });
    onGuiThread([&] { EXPECT_EQ(guiImage_getPixmap(host.object().get()), nullptr); });
}

TEST_F(ControlScript, TheValueOfAListWithSeveralSelectedRowsIsNullWithoutOne)
{
    NativeWindow window =
        open("<select name=s size=3 multiple><option value=a>A<option value=b>B<option value=c>C</select>");
    NativeObjectRef list = window.control("s");
    writeForm();
    EXPECT_EQ(form("s"), NativeValue());
    formObject().set("s", "c");
    readForm();
    list->call("selectItem", {"b"});
    EXPECT_EQ(list->call("isItemSelected", {"B"}), NativeValue(true));
    EXPECT_EQ(list->call("isItemSelected", {"a"}), NativeValue(false));
    EXPECT_EQ(list->call("isItemSelected", {1}), NativeValue(false));
    EXPECT_EQ(list->call("isItemSelected"), NativeValue(false));
    list->call("selectItem", {"b", false});
    writeForm();
    EXPECT_EQ(form("s"), NativeValue("c"));
    formObject().set("s", NativeValue());
    readForm();
    EXPECT_EQ(list->call("isItemSelected", {"c"}), NativeValue(false));
    writeForm();
    EXPECT_EQ(form("s"), NativeValue());
}
