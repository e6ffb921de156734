// A menu entry of a form: caption with its access letter ("&File"), check
// mark, visibility, and the entries below it. A separator is an entry whose
// caption is "-".
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace forms {

class Form;

class MenuItem {
  public:
    MenuItem(Form& form, std::string name, std::string caption, int index = -1);
    MenuItem(const MenuItem&) = delete;
    MenuItem& operator=(const MenuItem&) = delete;

    Form& Parent() const { return form_; }
    const std::string& Name() const { return name_; }
    int Index() const { return index_; }
    std::string FullName() const;
    const std::string& Caption() const { return caption_; }
    void SetCaption(std::string caption);
    bool IsSeparator() const { return caption_ == "-"; }
    bool Checked() const { return checked_; }
    void SetChecked(bool checked);
    bool Visible() const { return visible_; }
    void SetVisible(bool visible);

    MenuItem& Add(std::string name, std::string caption, int index = -1);
    const std::vector<std::unique_ptr<MenuItem>>& Items() const { return items_; }

    std::function<void()> Click;

  private:
    void Changed();
    Form& form_;
    std::string name_, caption_;
    int index_;
    bool checked_ = false, visible_ = true;
    std::vector<std::unique_ptr<MenuItem>> items_;
};

}  // namespace forms
