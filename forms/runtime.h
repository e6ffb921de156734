// The forms runtime: owns every model form, keeps the list of open forms in
// load order, the active form, the focus and the top-most band, runs mouse
// presses, automatic drags and popup menus, and hands out the desktop's
// services and the screen's size.
#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "forms/form.h"
#include "forms/runtime_observer.h"
#include "forms/services.h"

namespace forms {

class Runtime {
  public:
    Runtime(Services services, ScreenInfo screen);
    ~Runtime();
    Runtime(const Runtime&) = delete;
    Runtime& operator=(const Runtime&) = delete;

    Form& CreateForm(std::string name, BorderStyle border, bool hasMenuBar = false);
    // Drops an unloaded instance; a later use builds the form anew.
    void DestroyForm(Form& form);

    // Loading raises Load once; the form joins the open list. A child form
    // is then shown, and with it its parent; it is not activated.
    void Load(Form& form);
    // QueryUnload, then Unload; either may cancel. Returns true when the form
    // was unloaded. An instance form is set aside to be freed.
    bool Unload(Form& form, int unloadMode = 0);
    // The user closes the form from its frame: its close box, or the window
    // manager's own close (Alt+F4). A memory cell becomes the active one
    // first, as a press on its frame makes it. A form whose frame has no
    // close box can still be closed by the window manager: that close acts
    // as the form's cancel button, where it has one.
    void CloseByUser(Form& form);
    // Frees the instance forms unloaded so far. Only call it where no
    // handler of theirs can still be running (between events).
    void FreeUnloaded();
    // The open forms, in load order, without gaps: a form that closes
    // leaves at once and the later ones move up.
    const std::vector<Form*>& OpenForms() const { return openForms_; }
    Form* FindOpenForm(const std::string& name) const;

    Form* ActiveForm() const { return activeForm_; }
    // Makes the form the active one and raises its Activate on a change.
    // A parent that holds an active child hands the activation to it.
    void Activate(Form& form);

    Control* Focus() const { return focus_; }
    // Fails (false) on a hidden or disabled control or form, or a control
    // that takes no focus; the caller's statement is then simply dropped.
    // The focus on a control of another form activates that form first.
    bool SetFocus(Control& control);
    // The focus on the form itself: it is activated, and its GotFocus runs.
    bool SetFocus(Form& form);

    // Shows the form modally and returns once it is hidden or unloaded; the
    // desktop (or, headless, whoever answers for the user) runs it.
    void ShowModal(Form& form);
    bool InModal() const { return modalDepth_ > 0; }

    // The width in twips of `text` written in `font`.
    double TextWidth(const Font& font, const std::string& text) const;

    // The band of windows that float above other programs, front first.
    void SetTopMost(Form& form, bool onTop);
    const std::vector<Form*>& TopMostBand() const { return topMost_; }

    // Mouse presses. A press raises the MouseDown of the control under the
    // pointer, with the position in the control's own twips; a press of the
    // left button on a control with DragAutomatic then begins its drag, so
    // that MouseDown can choose the icon the drag starts with. The view runs
    // every press through here. A press on the form's own area raises the
    // form's MouseDown.
    void PressMouse(Control& control, int button, int shift, float x, float y);
    void PressMouse(Form& form, int button, int shift, float x, float y);

    // Automatic dragging inside the program, across all its windows. One
    // drag at a time; it keeps no data: handlers read what they need from
    // the source. While it lasts the drag shows the DragIcon of the source,
    // which handlers may change on the fly (the observer hears of each
    // change). A press and release with no move in between drops the source
    // on itself, as the platform does.
    //
    // Positions come in twips from the top left corner of the control under
    // the pointer. Its DragOver and DragDrop receive them as its
    // GetDragOrigin() says: unchanged, or with its Left and Top added, so
    // that Readout is told X in the coordinates of its form.
    //
    // Begins a drag of `source`; false, and nothing begins, when a drag is
    // under way already, or the source is hidden, disabled or not set to
    // drag automatically.
    bool BeginDrag(Control& source);
    bool Dragging() const { return dragSource_ != nullptr; }
    Control* DragSource() const { return dragSource_; }
    // The pointer is over `target` at (x, y); nullptr: over no control. The
    // target's DragOver runs with the source and State kDragEnter when the
    // pointer has just come over it, kDragOver while it moves on over it.
    // No DragOver with the leave state is raised when the pointer goes: the
    // program's handlers never look at the state.
    void DragMove(Control* target, float x, float y);
    // The pointer is over the own area of `form`, where no control lies, at
    // (x, y) of its inner area: the form's DragOver runs, as a control's does.
    void DragMoveOverForm(Form& form, float x, float y);
    // Letting go over `target` at (x, y): the drag ends, then the target's
    // DragDrop runs. Over no control (nullptr), or a control without a
    // DragDrop, the drag ends with nothing done.
    void Drop(Control* target, float x, float y);
    // Escape during the drag, or the end of the program: nothing done.
    void CancelDrag();

    // Pops up `menu`, a top item whose entries form the popup, at the
    // pointer. The view shows it and runs the Click of the entry picked;
    // headless nothing is shown. The runtime remembers the menu popped up
    // last (nullptr before the first).
    void PopupMenu(MenuItem& menu);
    MenuItem* LastPopupMenu() const { return lastPopup_; }

    Services& GetServices() { return services_; }
    const ScreenInfo& Screen() const { return screen_; }
    void SetScreen(ScreenInfo screen) { screen_ = screen; }

    void SetObserver(RuntimeObserver* observer) { observer_ = observer; }
    RuntimeObserver* Observer() const { return observer_; }

    // End of the program: no further event runs.
    void End();
    bool Ended() const { return ended_; }

  private:
    friend class Form;
    friend class Control;
    void FormHidden(Form& form);
    // The source's icon changed: the drag shows the new one.
    void DragIconSet(Control& control);
    void EndDrag();
    // A form that goes takes the drag and the remembered popup with it.
    void FormGoing(Form& form);

    Services services_;
    ScreenInfo screen_;
    RuntimeObserver* observer_ = nullptr;
    // Every form made, by its address.
    std::unordered_map<const Form*, std::unique_ptr<Form>> forms_;
    std::vector<std::unique_ptr<Form>> unloaded_;  // instances waiting to be freed
    std::vector<Form*> openForms_;
    std::vector<Form*> topMost_;
    Form* activeForm_ = nullptr;
    Control* focus_ = nullptr;
    Control* dragSource_ = nullptr;
    Control* dragTarget_ = nullptr;   // the control the pointer was over last
    Form* dragFormTarget_ = nullptr;  // or the form, over its own area
    MenuItem* lastPopup_ = nullptr;
    int modalDepth_ = 0;
    bool ended_ = false;
};

}  // namespace forms
