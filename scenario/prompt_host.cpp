#include "scenario/prompt_host.h"

namespace scenario {

void PromptHost::RunModal(forms::Form& form) {
    if (other_ && other_(form)) return;
    const forms::Control* text = form.Find("txtText1");
    shown_.push_back({text ? text->Caption() : "", calculatorTopMost_()});
    PromptAnswer answer;
    if (!answers_.empty()) {
        answer = std::move(answers_.front());
        answers_.pop_front();
    }
    driver_().AnswerPrompt(form, answer);
}

std::vector<PromptHost::Shown> PromptHost::TakeShown() {
    std::vector<Shown> taken;
    taken.swap(shown_);
    return taken;
}

}  // namespace scenario
