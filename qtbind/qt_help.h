// The program's help behind real windows: the user's guide, an HTML file
// with its pictures, shown in a help window of the program that stays in
// front with the calculator. A guide that is not where the program looked
// gets a page that says so and where it looked.
#pragma once

#include <QPointer>
#include <QTextBrowser>

#include "forms/services.h"

namespace qtbind {

class QtHelpSystem : public forms::HelpSystem {
  public:
    QtHelpSystem() = default;
    ~QtHelpSystem() override;
    QtHelpSystem(const QtHelpSystem&) = delete;
    QtHelpSystem& operator=(const QtHelpSystem&) = delete;

    // The folder of the running executable.
    std::string ExecutableFolder() const override;
    void ShowContents(const std::string& helpFile) override;

    // The help window, once shown; nullptr before.
    QTextBrowser* Window() const { return window_; }

    static constexpr const char* kWindowTitle = "Lathmark Calculator Help";

  private:
    QPointer<QTextBrowser> window_;
};

}  // namespace qtbind
