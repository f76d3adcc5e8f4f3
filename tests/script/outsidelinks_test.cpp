// tests/script/outsidelinks_test.cpp: tests of links to the web and to mail: the window's handler eLink, and the
// desktop, for which a widget stands in that keeps the addresses.
#include "tests/script/scriptfixture.h"

#include <QDesktopServices>
#include <QTextBrowser>
#include <memory>

namespace {

/// Opens nothing: keeps what the desktop is asked to open. A text browser has the slot that the toolkit calls.
class FakeDesktop : public QTextBrowser
{
public:
    FakeDesktop() { setHandlers(this); }
    ~FakeDesktop() override { setHandlers(nullptr); }

    std::vector<std::string> opened;

protected:
    void doSetSource(QUrl const& url, QTextDocument::ResourceType) override
    {
        opened.push_back(url.toString(QUrl::FullyEncoded).toStdString());
    }

private:
    static void setHandlers(FakeDesktop* desktop)
    {
        for (char const* scheme : {"http", "https", "mailto"})
            QDesktopServices::setUrlHandler(scheme, desktop, "setSource");
    }
};

class OutsideLinks : public ScriptTest
{
protected:
    /// What the desktop is asked to open when a window that `prepare` has seen follows the link from an element.
    std::vector<std::string> openedBy(NativeWindow& window, std::string const& link, std::string const& from = "")
    {
        std::vector<std::string> opened;
        onGuiThread(window, [&](guiHtmlBase*) { m_desktop = std::make_unique<FakeDesktop>(); });
        follow(window, link, from);
        onGuiThread(window, [&](guiHtmlBase*) {
            opened = m_desktop->opened;
            m_desktop.reset();
        });
        return opened;
    }

    static constexpr char const* kButton = "<input type=button name=b value=B> text";

private:
    std::unique_ptr<FakeDesktop> m_desktop;
};

using List = std::vector<std::string>;

} // namespace

TEST_F(OutsideLinks, AreOpenedByTheDesktop)
{
    NativeWindow window = windowOf(kButton);
    EXPECT_EQ(openedBy(window, "https://a/b%20c?d=e/f"), List{"https://a/b%20c?d=e/f"});
    EXPECT_EQ(openedBy(window, "mailto:a@b?subject=c%26d"), List{"mailto:a@b?subject=c%26d"});
    EXPECT_TRUE(window.control("b")) << "the page is still there";
}

TEST_F(OutsideLinks, GoToTheWindowsHandlerInstead)
{
    NativeWindow window = windowOf(kButton);
    std::vector<NativeArguments> calls;
    window.on("eLink", [&](NativeWindow&, NativeArguments const& args) {
        calls.push_back(args);
        return "https://again";
    });
    EXPECT_EQ(openedBy(window, "http://a/b\\c/%20d#e", "b"), List());
    ASSERT_EQ(calls.size(), 1u) << "what it returns is not followed";
    ASSERT_EQ(calls[0].size(), 2u);
    EXPECT_EQ(calls[0][1], NativeValue("http://a/b\\c/%20d#e"));
    EXPECT_EQ(calls[0][0].object()->get("currentControl").object()->get("name"), NativeValue("b"));
    EXPECT_TRUE(window.control("b"));
}

TEST_F(OutsideLinks, MayReplaceThePageInTheirHandler)
{
    NativeWindow window = windowOf(kButton);
    window.on("eLink", [](NativeWindow& self, NativeArguments const&) { self.call("setText", {"<b>new</b>"}); });
    EXPECT_EQ(openedBy(window, "https://a", "b"), List());
    printed([&] { EXPECT_FALSE(window.control("b")); });
}

TEST_F(OutsideLinks, ThatTheDesktopCanNotOpenAreTold)
{
    NativeWindow window = windowOf(kButton);
    std::string const log = printed([&] { follow(window, "https://a"); }); // off-screen there is no desktop
    EXPECT_NE(log.find("guiComponentHost::openOutside() - the desktop can not open https://a\n"), std::string::npos)
        << log;
    EXPECT_TRUE(window.control("b"));
}
