#include "ui/surface_fixture.hpp"

#include <QWebEnginePage>

#include "platform/text.hpp"

namespace quorrel::test {

SurfaceFixture::SurfaceFixture() : surface(files) {
    surface.Widget()->resize(600, 400);
    surface.Widget()->show();
}

SurfaceFixture::~SurfaceFixture() = default;

void SurfaceFixture::Open(const std::string& html) {
    folder.Write("topic.htm", html);
    surface.LoadDocument(folder.Windows("topic.htm"));
    WaitUntilThere();
}

void SurfaceFixture::OpenBody(const std::string& body) {
    Open("<html><head><title>T</title></head><body>" + body + "</body></html>");
}

void SurfaceFixture::WaitUntilThere() {
    ASSERT_TRUE(WaitFor([&] { return !surface.Busy(); }));
    ASSERT_NE(surface.DOM().body(), nullptr);
}

std::string SurfaceFixture::Body() {
    const std::string html = surface.DocumentHTML();
    const std::size_t start = html.find('>', FindIgnoringAsciiCase(html, "<BODY")) + 1;
    return html.substr(start, FindIgnoringAsciiCase(html, "</BODY") - start);
}

std::string SurfaceFixture::BodyWithSelection() {
    const std::string before = surface.DocumentHTML();
    const bool was_dirty = surface.IsDirty();
    const auto marked = [&](bool at_start) {
        const auto range = Range();
        range->collapse(at_start);
        range->pasteHTML("QRLSEL28");
        std::string body = Body();
        surface.ExecCommand(surface_command::DECMD_UNDO);
        return body;
    };
    const bool is_caret = surface.DOM().selection().Type() == SelectionType::kNone;
    const std::size_t end = marked(false).find("QRLSEL28");
    std::string body = marked(true);
    const std::size_t start = body.find("QRLSEL28");
    EXPECT_EQ(surface.DocumentHTML(), before);
    EXPECT_EQ(surface.IsDirty(), was_dirty);
    body.replace(start, 8, is_caret ? "^" : "[");
    if (!is_caret) body.insert(end + 1, "]");
    return body;
}

void SurfaceFixture::Select(const std::string& text) {
    const auto range = surface.DOM().body()->createTextRange();
    range->collapse(true);
    ASSERT_TRUE(range->findText(text, 1000000000, 4)) << text;
    range->Select();
}

void SurfaceFixture::CaretAfter(const std::string& text) {
    Select(text);
    const auto range = Range();
    range->collapse(false);
    range->Select();
}

void SurfaceFixture::Type(const QString& text) {
    surface.SetFocus();
    QTest::keyClicks(Input(), text);
}

void SurfaceFixture::Key(Qt::Key key, Qt::KeyboardModifiers held) {
    surface.SetFocus();
    QTest::keyClick(Input(), key, held);
}

void SurfaceFixture::Click(const QPoint& place, Qt::KeyboardModifiers held) {
    QTest::mouseClick(Input(), Qt::LeftButton, held, place);
}

QRect SurfaceFixture::PlaceOf(const QString& selector) {
    const QString code =
        "(() => { const r = document.querySelector('%1').getBoundingClientRect();"
        "return [r.left, r.top, r.width, r.height]; })()";
    const QVariantList r = ValueOf(*surface.View()->page(), code.arg(selector)).toList();
    EXPECT_EQ(r.size(), 4) << selector.toStdString();
    return {r.value(0).toInt(), r.value(1).toInt(), r.value(2).toInt(), r.value(3).toInt()};
}

bool SurfaceFixture::BodyBecomes(const std::string& body) {
    const bool has_come = WaitFor([&] { return Body() == body; });
    EXPECT_EQ(Body(), body);
    return has_come;
}

}  // namespace quorrel::test
