// The system information tool of the desktop: the first of the known tools
// that stands on the PATH, started apart from the program.
#pragma once

#include "forms/services.h"

namespace qtbind {

class QtSystemInfoTool : public forms::SystemInfoTool {
  public:
    std::optional<std::string> Find() const override;
    bool Start(const std::string& path) override;
};

}  // namespace qtbind
