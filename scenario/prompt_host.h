// The user at the name prompt, for the scenario tool: each prompt that the
// program shows modally is written down (the proposed text, and whether the
// calculator stood in the top-most band at that moment) and answered as the
// scenario said beforehand with `input`: a text typed and OK, Cancel, or,
// with nothing said, OK on the proposed text.
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "forms/services.h"
#include "scenario/driver.h"

namespace scenario {

class PromptHost : public forms::ModalHost {
  public:
    struct Shown {
        std::string proposed;
        bool calculatorTopMost;
    };

    // `driver` gives the answer as the user would; `calculatorTopMost` tells
    // where the calculator stands when a prompt comes up.
    PromptHost(std::function<Driver&()> driver, std::function<bool()> calculatorTopMost)
        : driver_(std::move(driver)), calculatorTopMost_(std::move(calculatorTopMost)) {}

    void RunModal(forms::Form& form) override;
    // Another modal form than the name prompt goes here first; the hook
    // returns true when it has answered it.
    void SetOtherModal(std::function<bool(forms::Form&)> other) { other_ = std::move(other); }

    void QueueAnswer(PromptAnswer answer) { answers_.push_back(std::move(answer)); }
    // The prompts shown since the last call.
    std::vector<Shown> TakeShown();

  private:
    std::function<Driver&()> driver_;
    std::function<bool()> calculatorTopMost_;
    std::deque<PromptAnswer> answers_;
    std::vector<Shown> shown_;
    std::function<bool(forms::Form&)> other_;
};

}  // namespace scenario
