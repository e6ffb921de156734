// The runtime's mouse presses, automatic drags and popup menus.
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "forms/runtime.h"

namespace forms {
namespace {

// What a view would be told, in order.
class RecordingObserver : public RuntimeObserver {
  public:
    void PopupMenuRequested(MenuItem& menu) override { events.push_back("popup " + menu.Name()); }
    void DragStarted(Control& source) override { events.push_back("start " + source.Name()); }
    void DragIconChanged(const std::string& picture) override {
        events.push_back("icon " + picture);
    }
    void DragEnded() override { events.push_back("end"); }
    std::vector<std::string> events;
};

struct Over {
    Control* source;
    float x, y;
    int state;
};
struct Dropped {
    Control* source;
    float x, y;
};

class DragSession : public ::testing::Test {
  protected:
    void SetUp() override {
        runtime.SetObserver(&observer);
        Form& f = runtime.CreateForm("Calculator", BorderStyle::FixedSingle);
        source = &f.AddControl(std::string("Readout"), ControlKind::Label);
        source->Move(185, 255, 3180, 345);
        source->SetDragAutomatic(true);
        target = &f.AddControl(std::string("Target"), ControlKind::Label);
        target->Move(270, 1000, 1575, 285);
        plain = &f.AddControl(std::string("Plain"), ControlKind::PushButton);
        plain->Move(0, 2000, 480, 480);
        for (Control* c : {source, target}) {
            c->DragOver = [this, c](Control& s, float x, float y, int state) {
                overs[c].push_back({&s, x, y, state});
            };
            c->DragDrop = [this, c](Control& s, float x, float y) {
                drops[c].push_back({&s, x, y});
                droppedWhileDragging = runtime.Dragging();
            };
        }
        runtime.Load(f);
        f.Show();
        form = &f;
        observer.events.clear();
    }

    Runtime runtime{Services{}, ScreenInfo{}};
    RecordingObserver observer;
    Form* form = nullptr;
    Control* source = nullptr;
    Control* target = nullptr;
    Control* plain = nullptr;
    std::map<Control*, std::vector<Over>> overs;
    std::map<Control*, std::vector<Dropped>> drops;
    bool droppedWhileDragging = true;
};

TEST_F(DragSession, LeftPressRunsMouseDownThenBeginsTheDrag) {
    std::vector<std::string> order;
    source->MouseDown = [&](int button, int, float x, float y) {
        order.push_back("down " + std::to_string(button));
        EXPECT_FALSE(runtime.Dragging());
        EXPECT_EQ(x, 10);
        EXPECT_EQ(y, 20);
        source->SetDragIcon("Image3");
    };
    runtime.PressMouse(*source, kLeftButton, 0, 10, 20);
    EXPECT_EQ(order, std::vector<std::string>{"down 1"});
    EXPECT_TRUE(runtime.Dragging());
    EXPECT_EQ(runtime.DragSource(), source);
    // The drag starts with the icon that MouseDown chose.
    EXPECT_EQ(observer.events, (std::vector<std::string>{"start Readout", "icon Image3"}));
}

TEST_F(DragSession, RightPressRunsMouseDownOnlyAndNeverDrags) {
    int downs = 0;
    source->MouseDown = [&](int button, int, float, float) {
        EXPECT_EQ(button, kRightButton);
        ++downs;
    };
    runtime.PressMouse(*source, kRightButton, 0, 5, 5);
    EXPECT_EQ(downs, 1);
    EXPECT_FALSE(runtime.Dragging());
    EXPECT_TRUE(observer.events.empty());
}

TEST_F(DragSession, LeftPressOnAControlThatDoesNotDragOnlyRunsMouseDown) {
    int downs = 0;
    plain->MouseDown = [&](int, int, float, float) { ++downs; };
    runtime.PressMouse(*plain, kLeftButton, 0, 5, 5);
    EXPECT_EQ(downs, 1);
    EXPECT_FALSE(runtime.Dragging());
}

TEST_F(DragSession, PressOnTheFormRunsTheFormsMouseDown) {
    int button = 0;
    form->MouseDown = [&](int b, int, float, float) { button = b; };
    runtime.PressMouse(*form, kRightButton, 0, 60, 60);
    EXPECT_EQ(button, kRightButton);
}

TEST_F(DragSession, BeginDragRefusesWhatCannotBeDragged) {
    EXPECT_FALSE(runtime.BeginDrag(*plain));
    source->SetVisible(false);
    EXPECT_FALSE(runtime.BeginDrag(*source));
    source->SetVisible(true);
    source->SetEnabled(false);
    EXPECT_FALSE(runtime.BeginDrag(*source));
    source->SetEnabled(true);
    EXPECT_TRUE(runtime.BeginDrag(*source));
    // One drag at a time.
    target->SetDragAutomatic(true);
    EXPECT_FALSE(runtime.BeginDrag(*target));
    EXPECT_EQ(runtime.DragSource(), source);
}

TEST_F(DragSession, MovesRaiseDragOverWithEnterThenOver) {
    ASSERT_TRUE(runtime.BeginDrag(*source));
    runtime.DragMove(target, 100, 50);
    runtime.DragMove(target, 200, 60);
    runtime.DragMove(source, 1, 2);
    runtime.DragMove(target, 300, 70);
    ASSERT_EQ(overs[target].size(), 3u);
    EXPECT_EQ(overs[target][0].state, kDragEnter);
    EXPECT_EQ(overs[target][1].state, kDragOver);
    EXPECT_EQ(overs[target][2].state, kDragEnter);  // came back after the source
    EXPECT_EQ(overs[target][1].source, source);
    EXPECT_EQ(overs[target][1].x, 200);
    EXPECT_EQ(overs[target][1].y, 60);
    ASSERT_EQ(overs[source].size(), 1u);
    EXPECT_EQ(overs[source][0].state, kDragEnter);
}

TEST_F(DragSession, AControlCountingOnItsFormGetsItsLeftAndTopAdded) {
    source->SetDragOrigin(DragOrigin::Form);
    ASSERT_TRUE(runtime.BeginDrag(*source));
    runtime.DragMove(source, 1590, 10.5f);
    ASSERT_EQ(overs[source].size(), 1u);
    EXPECT_EQ(overs[source][0].x, 1775);
    EXPECT_EQ(overs[source][0].y, 265.5);
    runtime.Drop(source, 0.5f, 0);
    ASSERT_EQ(drops[source].size(), 1u);
    EXPECT_EQ(drops[source][0].x, 185.5);
    EXPECT_EQ(drops[source][0].y, 255);
}

TEST_F(DragSession, MovesOverNothingOrOverHiddenControlsRaiseNothing) {
    ASSERT_TRUE(runtime.BeginDrag(*source));
    runtime.DragMove(nullptr, 0, 0);
    target->SetVisible(false);
    runtime.DragMove(target, 0, 0);
    runtime.DragMove(plain, 0, 0);  // no DragOver of its own
    EXPECT_TRUE(overs[target].empty());
    target->SetVisible(true);
    runtime.DragMove(target, 0, 0);
    ASSERT_EQ(overs[target].size(), 1u);
    EXPECT_EQ(overs[target][0].state, kDragEnter);
}

TEST_F(DragSession, DropEndsTheDragThenRunsDragDropOnce) {
    ASSERT_TRUE(runtime.BeginDrag(*source));
    runtime.DragMove(target, 10, 10);
    runtime.Drop(target, 12, 14);
    EXPECT_FALSE(runtime.Dragging());
    EXPECT_FALSE(droppedWhileDragging);
    ASSERT_EQ(drops[target].size(), 1u);
    EXPECT_EQ(drops[target][0].source, source);
    EXPECT_EQ(drops[target][0].x, 12);
    EXPECT_EQ(drops[target][0].y, 14);
    EXPECT_EQ(observer.events.back(), "end");
    // Nothing more comes after the end.
    runtime.DragMove(target, 0, 0);
    runtime.Drop(target, 0, 0);
    EXPECT_EQ(overs[target].size(), 1u);
    EXPECT_EQ(drops[target].size(), 1u);
}

TEST_F(DragSession, PressAndReleaseWithoutAMoveDropsTheSourceOnItself) {
    runtime.PressMouse(*source, kLeftButton, 0, 40, 40);
    runtime.Drop(source, 40, 40);
    ASSERT_EQ(drops[source].size(), 1u);
    EXPECT_EQ(drops[source][0].source, source);
}

TEST_F(DragSession, LettingGoOutsideEveryTargetDoesNothing) {
    ASSERT_TRUE(runtime.BeginDrag(*source));
    runtime.Drop(nullptr, 0, 0);
    EXPECT_FALSE(runtime.Dragging());
    ASSERT_TRUE(runtime.BeginDrag(*source));
    runtime.Drop(plain, 0, 0);  // a control without DragDrop
    EXPECT_FALSE(runtime.Dragging());
    EXPECT_TRUE(drops[source].empty());
    EXPECT_TRUE(drops[target].empty());
}

TEST_F(DragSession, EscapeCancelsWithNothingDone) {
    ASSERT_TRUE(runtime.BeginDrag(*source));
    runtime.DragMove(target, 10, 10);
    runtime.CancelDrag();
    EXPECT_FALSE(runtime.Dragging());
    EXPECT_TRUE(drops[target].empty());
    EXPECT_EQ(observer.events, (std::vector<std::string>{"start Readout", "icon ", "end"}));
    // A new drag can begin.
    EXPECT_TRUE(runtime.BeginDrag(*source));
}

TEST_F(DragSession, TheDragShowsEachNewIconOfItsSourceAtOnce) {
    target->DragOver = [this](Control& s, float x, float, int) {
        s.SetDragIcon(x < 500 ? "Image2" : "Image1");
        target->SetDragIcon("Image1");  // not the source: the drag doesn't show it
    };
    ASSERT_TRUE(runtime.BeginDrag(*source));
    runtime.DragMove(target, 100, 0);
    runtime.DragMove(target, 200, 0);  // the same icon again: no news
    runtime.DragMove(target, 900, 0);
    runtime.CancelDrag();
    source->SetDragIcon("Image3");  // after the drag: no news either
    EXPECT_EQ(observer.events, (std::vector<std::string>{"start Readout", "icon ", "icon Image2",
                                                         "icon Image1", "end"}));
}

TEST_F(DragSession, UnloadingTheSourcesFormEndsTheDrag) {
    ASSERT_TRUE(runtime.BeginDrag(*source));
    runtime.Unload(*form);
    EXPECT_FALSE(runtime.Dragging());
    EXPECT_EQ(observer.events.back(), "end");
}

TEST_F(DragSession, TheEndOfTheProgramCancelsTheDragAndStopsPresses) {
    ASSERT_TRUE(runtime.BeginDrag(*source));
    runtime.End();
    EXPECT_FALSE(runtime.Dragging());
    int downs = 0;
    source->MouseDown = [&](int, int, float, float) { ++downs; };
    runtime.PressMouse(*source, kLeftButton, 0, 0, 0);
    EXPECT_EQ(downs, 0);
    EXPECT_FALSE(runtime.Dragging());
}

TEST_F(DragSession, PopupMenuTellsTheViewAndIsRemembered) {
    EXPECT_EQ(runtime.LastPopupMenu(), nullptr);
    MenuItem& popup = form->AddMenu("mnuPopup1", "Popup1");
    popup.SetVisible(false);
    popup.Add("mnuPopup1Cancel", "Cancel");
    runtime.PopupMenu(popup);
    EXPECT_EQ(runtime.LastPopupMenu(), &popup);
    EXPECT_EQ(observer.events, std::vector<std::string>{"popup mnuPopup1"});
    runtime.End();
    observer.events.clear();
    runtime.PopupMenu(popup);
    EXPECT_TRUE(observer.events.empty());
}

}  // namespace
}  // namespace forms
