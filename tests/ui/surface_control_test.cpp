#include <gtest/gtest.h>

#include <QImage>

#include "platform/text.hpp"
#include "ui/surface_fixture.hpp"

namespace quorrel::test {
namespace {

using namespace surface_command;
using namespace command_status;

/// A page with a graphic of 60 by 40, a table with a wide edge, and other objects.
class Controls : public SurfaceFixture {
  protected:
    void OpenObjects() {
        QImage picture(60, 40, QImage::Format_RGB32);
        picture.fill(Qt::darkGreen);
        ASSERT_TRUE(picture.save(QString::fromStdString(folder.Native("dot.png"))));
        OpenBody(kObjects);
    }
    SelectionType Type() { return surface.DOM().selection().Type(); }
    std::string Selected() {
        const auto range = surface.DOM().selection().createControlRange();
        return range == nullptr ? "" : range->commonParentElement()->outerHTML().substr(0, 6);
    }
    void ClickOn(const QString& selector) { Click(PlaceOf(selector).center()); }
    void SelectImage() {
        ClickOn("img");
        ASSERT_TRUE(WaitFor([&] { return Type() == SelectionType::kControl; }));
    }
    void DragMouse(const QPoint& from, const QPoint& to) {
        QTest::mousePress(Input(), Qt::LeftButton, {}, from);
        QTest::mouseMove(Input(), (from + to) / 2);
        QTest::mouseMove(Input(), to);
        QTest::mouseRelease(Input(), Qt::LeftButton, {}, to);
    }

    static constexpr const char* kObjects =
        "<p>text</p><p><img src=\"dot.png\"> after</p><p><input> <button>b</button></p><hr>"
        "<table border=\"8\" width=\"200\"><tbody><tr><td>cell</td></tr></tbody></table>";
};

TEST_F(Controls, AClickSelectsAnObjectAndTextUnselectsIt) {
    OpenObjects();
    const std::pair<const char*, const char*> objects[] = {
        {"img", "<IMG s"}, {"input", "<INPUT"}, {"button", "<BUTTO"}, {"hr", "<HR>"}};
    for (const auto& [selector, tag] : objects) {
        ClickOn(selector);
        EXPECT_TRUE(WaitFor([&, wanted = tag] { return Selected() == wanted; })) << selector;
        EXPECT_EQ(Type(), SelectionType::kControl);
        EXPECT_EQ(Range(), nullptr);
        EXPECT_EQ(surface.QueryStatus(DECMD_BOLD), kDisabled);
        EXPECT_EQ(surface.QueryStatus(DECMD_COPY), kEnabled);
        ClickOn("p");
        EXPECT_TRUE(WaitFor([&] { return Type() == SelectionType::kNone; })) << selector;
    }
    Click(PlaceOf("table").topLeft() + QPoint(3, 12));
    EXPECT_TRUE(WaitFor([&] { return Selected() == "<TABLE"; }));
    ClickOn("td");
    EXPECT_TRUE(WaitFor([&] { return Type() == SelectionType::kNone; }));
    EXPECT_FALSE(surface.IsDirty());
    EXPECT_EQ(Body(), kObjects);
}

TEST_F(Controls, AGraphicIsDeletedSizedMovedAndLocked) {
    OpenObjects();
    surface.SetShowBorders(true);
    surface.SetShowDetails(true);
    SelectImage();
    const auto image_becomes = [&](const std::string& image) {
        const bool has_come = WaitFor([&] { return Contains(Body(), "<p>" + image + " after"); });
        EXPECT_TRUE(has_come) << Body();
    };
    Key(Qt::Key_Delete);
    image_becomes("");
    EXPECT_EQ(Type(), SelectionType::kNone);
    Do(DECMD_UNDO);
    EXPECT_EQ(Selected(), "<IMG s");
    EXPECT_EQ(Body(), kObjects) << "and nothing of the marks around it";

    // A corner keeps the shape, a side does not.
    const QRect place = PlaceOf("img");
    QTest::qWait(200);  // until the handles are drawn
    DragMouse(place.bottomRight() + QPoint(1, 1), place.bottomRight() + QPoint(61, 3));
    image_becomes("<img src=\"dot.png\" width=\"120\" height=\"80\">");
    QTest::qWait(200);
    const QRect wider = PlaceOf("img");
    DragMouse({wider.right() + 1, wider.center().y()},
              {wider.right() - 19, wider.center().y() + 9});
    image_becomes("<img src=\"dot.png\" width=\"100\" height=\"80\">");
    EXPECT_EQ(Selected(), "<IMG s");
    Do(DECMD_UNDO);
    Do(DECMD_UNDO);
    EXPECT_EQ(Body(), kObjects);

    EXPECT_EQ(surface.QueryStatus(DECMD_MAKE_ABSOLUTE), kEnabled);
    EXPECT_EQ(surface.QueryStatus(DECMD_LOCK_ELEMENT), kDisabled);
    Do(DECMD_MAKE_ABSOLUTE);
    EXPECT_EQ(surface.QueryStatus(DECMD_MAKE_ABSOLUTE), kLatched);
    surface.SetSnapToGrid(true);
    const QPoint from = PlaceOf("img").center();
    DragMouse(from, from + QPoint(53, 31));
    ASSERT_TRUE(WaitFor([&] { return PlaceOf("img").center() != from; }));
    const QPoint moved = PlaceOf("img").topLeft();
    EXPECT_EQ(QPoint(moved.x() % 8, moved.y() % 8), QPoint());

    Do(DECMD_LOCK_ELEMENT);
    EXPECT_EQ(surface.QueryStatus(DECMD_LOCK_ELEMENT), kLatched);
    const std::string locked = Body();
    DragMouse(moved + QPoint(9, 9), moved + QPoint(60, 60));
    QTest::qWait(100);
    EXPECT_EQ(Body(), locked);
    Do(DECMD_LOCK_ELEMENT);
    Do(DECMD_MAKE_ABSOLUTE);
    EXPECT_EQ(Body(), kObjects);
    surface.SetBrowseMode(true);
    EXPECT_EQ(Type(), SelectionType::kNone);
}

TEST_F(Controls, LayersChangePlaces) {
    const auto box = [](const char* id, const char* layer) {
        return std::string("<div id=\"") + id +
               "\" style=\"position: absolute; left: 0px; top: " + (*id == 'a' ? "0px" : "40px") +
               "; width: 30px; height: 30px; z-index: " + layer + ";\">x</div>";
    };
    const std::pair<int, const char*> cases[] = {{DECMD_BRING_TO_FRONT, "6"},
                                                 {DECMD_SEND_TO_BACK, "0"},
                                                 {DECMD_BRING_FORWARD, "6"},
                                                 {DECMD_SEND_BELOW_TEXT, "-2"},
                                                 {DECMD_BRING_ABOVE_TEXT, "2"}};
    for (const auto& [command, layer] : cases) {
        OpenBody(box("a", "2") + box("b", "5"));
        Click(PlaceOf("#a").topLeft() + QPoint(2, 2));
        ASSERT_TRUE(WaitFor([&] { return Type() == SelectionType::kControl; }));
        Do(command);
        EXPECT_EQ(Body(), box("a", layer) + box("b", "5")) << command;
    }
}

TEST_F(Controls, ADoubleClickAndTheContextMenuAreTold) {
    int clicks = 0;
    QPoint menu;
    surface.ondblclick = [&] {
        ++clicks;
        EXPECT_EQ(Selected(), "<IMG s");
    };
    surface.ShowContextMenu = [&](int x, int y) { menu = {x, y}; };
    OpenObjects();
    const QPoint place = PlaceOf("img").center();
    // The clicks of QTest lie too far apart in time for the engine.
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease,
                                    QEvent::MouseButtonDblClick, QEvent::MouseButtonRelease}) {
        const bool is_up = type == QEvent::MouseButtonRelease;
        QMouseEvent event(type, place, Input()->mapToGlobal(QPointF(place)), Qt::LeftButton,
                          is_up ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
        event.setTimestamp(1'000'000);
        QCoreApplication::sendEvent(Input(), &event);
    }
    EXPECT_TRUE(WaitFor([&] { return clicks == 1; }));
    QTest::mouseClick(Input(), Qt::RightButton, {}, place);
    EXPECT_TRUE(WaitFor([&] { return menu == place; }));
}

}  // namespace
}  // namespace quorrel::test
