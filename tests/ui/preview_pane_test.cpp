#include "ui/preview_pane.hpp"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QLabel>
#include <QLineEdit>
#include <QNetworkInterface>
#include <QNetworkProxy>
#include <QTcpServer>
#include <QTest>
#include <QTimer>
#include <QUdpSocket>
#include <QWebEnginePage>
#include <QWebEngineView>

#include <functional>
#include <string>

#include "platform/text.hpp"
#include "support/scratch_folder.hpp"
#include "ui/modal_script.hpp"
#include "ui/qt_text.hpp"
#include "ui/topic_scheme.hpp"

namespace quorrel::test {
namespace {

/// In a real event loop, in which the engine gets on many times faster than in QTest's.
bool WaitFor(const std::function<bool()>& is_so) {
    QEventLoop loop;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &loop, [&] {
        if (is_so()) loop.quit();
    });
    QTimer::singleShot(20000, &loop, [&] { loop.exit(1); });
    poll.start(5);
    return is_so() || loop.exec() == 0;
}

struct Preview : testing::Test {
    Preview() {
        pane.Widget()->resize(400, 300);
        pane.Widget()->show();
        pane.open_external = [this](const QUrl& url) { opened << url.toString(); };
    }
    QString Evaluate(const QString& script) {
        QString text;
        bool is_there = false;
        pane.View()->page()->runJavaScript(script, [&](const QVariant& result) {
            text = result.toString();
            is_there = true;
        });
        EXPECT_TRUE(WaitFor([&] { return is_there; })) << script.toStdString();
        return text;
    }
    testing::AssertionResult Becomes(const QString& script, const QString& expected) {
        QElapsedTimer since;
        since.start();
        QString is;
        while ((is = Evaluate(script)) != expected) {
            const bool is_late = since.hasExpired(20000);
            if (is_late) return testing::AssertionFailure() << FromQt(script + " is " + is);
        }
        return testing::AssertionSuccess();
    }
    testing::AssertionResult Shows(const QString& text) {
        return Becomes("document.body ? document.body.innerText.trim() : ''", text);
    }
    void Write(const std::string& name, const std::string& body) {
        folder.Write(name, "<html><head></head><body>" + body + "</body></html>");
    }
    void Go(const std::string& name) { pane.Navigate(folder.Windows(name)); }
    void ClickCorner() {
        QTest::mouseClick(pane.View()->focusProxy(), Qt::LeftButton, {}, QPoint(30, 30));
    }
    static std::string Corner(const std::string& attributes, const std::string& text = "x") {
        return "<a style=\"position:fixed;left:0;top:0;width:90px;height:90px\" " + attributes +
               ">" + text + "</a>";
    }

    ScratchFolder folder;
    NativeFileSystem files;
    ModalScript dialogs;
    QStringList opened;
    PreviewPane pane{files};
};

TEST_F(Preview, NothingIsStartedBeforeTheFirstTopic) {
    pane.GoBack();
    pane.Refresh();
    pane.Stop();
    EXPECT_EQ(pane.View(), nullptr);
}

TEST_F(Preview, AWorkingCopyRunsItsScriptsAndFindsWhatLiesBesideIt) {
    folder.Write("Pages/side.js", "document.getElementById('p').textContent = 'ran'");
    folder.Write("Pages/side.css", "p { color: rgb(1, 2, 3) }");
    folder.Write("Pages/a.htm.tmp.htm",
                 "<html><head><meta charset=\"shift_jis\"><link rel=stylesheet href=SIDE.CSS>"
                 "</head><body>\x93\xfa\x96\x7b<p id=p></p><script src=side.js></script></body>");
    Go("pages/a.htm.tmp.htm");
    EXPECT_TRUE(Shows("\u65e5\u672c\n\nran"));
    EXPECT_TRUE(Becomes("getComputedStyle(document.getElementById('p')).color", "rgb(1, 2, 3)"));
}

TEST_F(Preview, GoesToBookmarksAndBack) {
    Write("a#1.htm", "first<p style='height:3000px'></p><a name='here b'>end</a>");
    Write("b.htm", "second" + Corner("href='A%231.htm#here%20b'", ""));
    Go("b.htm");
    ASSERT_TRUE(Shows("second"));
    ClickCorner();
    EXPECT_TRUE(Becomes("scrollY > 1000", "true"));
    EXPECT_EQ(Evaluate("document.body.innerText.substr(0, 5)"), "first");
    pane.GoBack();
    EXPECT_TRUE(Shows("second"));
    Write("c.htm", "third");
    Go("c.htm");
    ASSERT_TRUE(Shows("third"));
    Write("c.htm", "third, better");
    Go("c.htm");
    ASSERT_TRUE(Shows("third, better"));
    pane.GoBack();
    EXPECT_TRUE(Shows("second"));
    Go("a#1.htm");
    EXPECT_TRUE(Becomes("document.body.innerText.substr(0, 5)", "first"));
    EXPECT_EQ(Evaluate("scrollY"), "0");
    Go("a#1.htm#here b");
    EXPECT_TRUE(Becomes("scrollY > 1000", "true"));
}

TEST_F(Preview, ATopicThatHasChangedIsReadAgain) {
    folder.Write("s.css", "p { color: rgb(1, 1, 1) }");
    Write("a.htm", "<link rel=stylesheet href=s.css><p id=p>one");
    Write("b.htm", "other");
    const QString color = "getComputedStyle(document.getElementById('p')).color";
    Go("a.htm");
    ASSERT_TRUE(Becomes(color, "rgb(1, 1, 1)"));
    folder.Write("s.css", "p { color: rgb(2, 2, 2) }");
    Write("a.htm", "<link rel=stylesheet href=s.css><p id=p>two");
    Go("a.htm");
    EXPECT_TRUE(Shows("two"));
    EXPECT_TRUE(Becomes(color, "rgb(2, 2, 2)"));
    Go("b.htm");
    ASSERT_TRUE(Shows("other"));
    folder.Write("s.css", "p { color: rgb(3, 3, 3) }");
    Go("a.htm#p");
    EXPECT_TRUE(Shows("two"));
    EXPECT_TRUE(Becomes(color, "rgb(3, 3, 3)"));
    Write("a.htm", "three");
    pane.Refresh();
    EXPECT_TRUE(Shows("three"));
}

TEST_F(Preview, AScriptWithoutAnEndHoldsNothingUp) {
    Write("a.htm",
          "<p>first</p><script>document.title = 'runs';"
          "setTimeout(() => { for (;;); }, 0)</script>");
    Write("b.htm", "<title>second</title>");
    const auto has_title = [&](const QString& title) {
        return WaitFor([&] { return pane.View()->title() == title; });
    };
    Go("a.htm");
    ASSERT_TRUE(has_title("runs"));
    Go("b.htm");
    EXPECT_TRUE(has_title("second"));
}

TEST_F(Preview, AScriptThatSpeaksOnAndOnCanBeSilenced) {
    Write("a.htm",
          "<p id=p></p><script>const a = [confirm('1 <b>'), prompt('2', 'proposed')];"
          "for (let i = 0; i < 20; ++i) alert('on and on');"
          "document.getElementById('p').textContent = a.join()</script>");
    const auto answer = [](QWidget& dialog, const QString& text, bool may_suppress) {
        EXPECT_EQ(dialog.windowTitle(), "Quorrel");
        EXPECT_EQ(dialog.findChild<QLabel*>("PreviewMessageText")->text(), text);
        auto* suppress = dialog.findChild<QCheckBox*>("PreviewMessageSuppress");
        EXPECT_EQ(suppress->isVisible(), may_suppress);
        if (text == "on and on") suppress->setChecked(true);
        QTest::keyClick(&dialog, Qt::Key_Return);
    };
    dialogs.Expect("PreviewMessage", [&](QWidget& dialog) { answer(dialog, "1 <b>", false); });
    dialogs.Expect("PreviewMessage", [&](QWidget& dialog) {
        QTest::keyClicks(dialog.findChild<QLineEdit*>("PreviewMessageAnswer"), "mine");
        answer(dialog, "2", true);
    });
    dialogs.Expect("PreviewMessage", [&](QWidget& dialog) { answer(dialog, "on and on", true); });
    Go("a.htm");
    EXPECT_TRUE(Shows("true,mine"));
    // Another topic may speak again.
    Write("b.htm", "<script>alert('b')</script>done");
    dialogs.Expect("PreviewMessage", [&](QWidget& dialog) { answer(dialog, "b", false); });
    Go("b.htm");
    EXPECT_TRUE(Shows("done"));
}

TEST_F(Preview, AClickMayOpenAWindowAndAScriptAloneMayNot) {
    Write("small.htm", "<title>small</title>in a window");
    Write("a.htm",
          Corner("href=# onclick=\"window.open('small.htm', 'w', 'width=200,height=150')\"") +
              "<script>window.open('small.htm'); document.title = 'ran'</script>");
    Go("a.htm");
    ASSERT_TRUE(Becomes("document.title", "ran"));
    const auto windows = [&] {
        return pane.Widget()->findChildren<QWebEngineView*>("PreviewWindow");
    };
    EXPECT_TRUE(windows().isEmpty());
    ClickCorner();
    ASSERT_TRUE(WaitFor([&] { return !windows().isEmpty(); }));
    QWebEngineView* window = windows().front();
    EXPECT_TRUE(WaitFor([&] { return window->windowTitle() == "small"; }));
    EXPECT_TRUE(window->isWindow());
}

TEST_F(Preview, WhatCannotBeShownIsSaid) {
    Go("no <b> & none.htm#x");
    EXPECT_TRUE(
        Shows("The file " + ToQt(folder.Native("no <b> & none.htm")) + " cannot be found."));
    folder.Write("plain.txt", "1 < 2");
    Go("plain.txt");
    EXPECT_TRUE(Shows("1 < 2"));
    Write("frame.htm",
          "<img src=none.png onerror=\"document.title='no picture'\">"
          "<iframe id=f src=none.htm></iframe>");
    Go("frame.htm");
    EXPECT_TRUE(Becomes("document.title", "no picture"));
    EXPECT_TRUE(Becomes("document.getElementById('f').contentDocument.body.innerText",
                        "The file " + ToQt(folder.Native("none.htm")) + " cannot be found."));
    pane.Navigate("https://www.example.org/a?b=c&d#e");
    EXPECT_TRUE(Becomes("document.links[0].href", "https://www.example.org/a?b=c&d#e"));
}

TEST_F(Preview, OnlyTheUsersClickLeadsOut) {
    Write("a.htm", Corner("id=x href='https://www.example.org/?q=1'") +
                       "<a id=m href='mailto:a@b.c'>m</a><p id=p></p><script>"
                       "for (const id of ['x', 'm']) document.getElementById(id).click();"
                       "window.open('https://www.example.org/opened');"
                       "location.href = 'https://www.example.org/gone';"
                       "document.getElementById('x').addEventListener('click', () => {"
                       "for (let i = 0; i < 5; ++i) document.getElementById('m').click(); });"
                       "setTimeout(() => document.getElementById('p').textContent = 'ran', 100)"
                       "</script>");
    Go("a.htm");
    ASSERT_TRUE(Becomes("document.getElementById('p').textContent", "ran"));
    EXPECT_EQ(opened, QStringList());
    ClickCorner();
    EXPECT_TRUE(WaitFor([&] { return !opened.isEmpty(); }));
    EXPECT_EQ(Evaluate("document.getElementById('p').textContent"), "ran");
    EXPECT_EQ(opened.size(), 1) << FromQt(opened.join(' '));
}

/// An address of this machine that a proxy would be asked for, which it is not for the loop back.
QHostAddress OwnAddress() {
    for (const QHostAddress& address : QNetworkInterface::allAddresses()) {
        const bool is_v4 = address.protocol() == QAbstractSocket::IPv4Protocol;
        if (is_v4 && !address.isLoopback() && !address.isLinkLocal()) return address;
    }
    return {};
}

TEST_F(Preview, AnAddressThatAScriptMadeIsAskedFor) {
    folder.Write("secret.txt", "42");
    Write("a.htm", Corner("id=x") +
                       "<iframe id=f src=secret.txt onload=\"document.getElementById('x').href = "
                       "'https://www.example.org/' + this.contentDocument.body.innerText;"
                       "document.title = 'ready'\"></iframe>");
    Go("a.htm");
    for (const bool is_wanted : {false, true}) {
        ASSERT_TRUE(Becomes("document.title", "ready"));
        dialogs.Expect("PreviewMessage", [&](QWidget& dialog) {
            EXPECT_TRUE(dialog.findChild<QLabel*>("PreviewMessageText")
                            ->text()
                            .contains("https://www.example.org/42"));
            QTest::keyClick(&dialog, is_wanted ? Qt::Key_Return : Qt::Key_Escape);
        });
        ClickCorner();
        EXPECT_TRUE(WaitFor([&] { return dialogs.IsDone(); }));
        QCoreApplication::processEvents();
        EXPECT_EQ(opened.isEmpty(), !is_wanted);
    }
}

TEST_F(Preview, AScriptReachesNothing) {
    const QHostAddress own = OwnAddress();
    if (own.isNull()) GTEST_SKIP() << "this machine has no address";
    QTcpServer server;
    server.setProxy(QNetworkProxy::NoProxy);
    ASSERT_TRUE(server.listen(own));
    QUdpSocket socket;
    socket.setProxy(QNetworkProxy::NoProxy);
    ASSERT_TRUE(socket.bind(own));
    std::string page = R"(<p id=p></p><img src="http://HOST/a"><iframe src="http://HOST/b"></iframe>
<iframe id=f></iframe><form id=g action="http://HOST/d" target=_blank></form><script>
new Image().src = 'http://HOST/e';
try { navigator.sendBeacon('http://HOST/g', 'x') } catch (e) {}
try { new WebSocket('ws://HOST/h') } catch (e) {}
try { new EventSource('http://HOST/i') } catch (e) {}
try { new Worker('http://HOST/j') } catch (e) {}
try { document.getElementById('g').submit() } catch (e) {}
const call = (maker) => { try {
  const peer = new maker({iceServers: [{urls: 'stun:ADDRESS:UDP'},
    {urls: 'turn:HOST?transport=tcp', username: 'a', credential: 'b'}]});
  peer.createDataChannel('x'); peer.createOffer().then(o => peer.setLocalDescription(o));
} catch (e) {} };
call(window.RTCPeerConnection);
call(document.getElementById('f').contentWindow.RTCPeerConnection);
fetch('http://HOST/f').catch(() => 0).then(() =>
  setTimeout(() => document.getElementById('p').textContent = 'done', 1000));
</script>)";
    page = ReplaceAll(page, "HOST", "ADDRESS:" + std::to_string(server.serverPort()));
    page = ReplaceAll(page, "UDP", std::to_string(socket.localPort()));
    Write("a.htm", ReplaceAll(page, "ADDRESS", FromQt(own.toString())));
    Go("a.htm");
    ASSERT_TRUE(Becomes("document.getElementById('p').textContent", "done"));
    EXPECT_FALSE(server.hasPendingConnections());
    EXPECT_FALSE(socket.hasPendingDatagrams());
}

}  // namespace
}  // namespace quorrel::test
