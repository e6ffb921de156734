#include "shell/help_about.h"

#include <filesystem>

#include "forms/top_most.h"
#include "memory/cells.h"
#include "shell/catalogue.h"

namespace shell {

namespace {

constexpr const char* kDescription =
    "Lathmark Calculator project\r\n"
    "Feet, inches and fractions of an inch\r\n"
    "for carpenters and estimators\r\n"
    "\r\n"
    "email: no address is published\r\n"
    "internet: no site is published";

constexpr const char* kDisclaimer =
    "Warning: Lathmark Calculator is the work of the Lathmark Calculator project "
    "and is protected by copyright. Reproduction or distribution of this program, "
    "or of any part of it, without the permission of the Lathmark Calculator "
    "project is not allowed.";

std::vector<forms::Form*> OpenCells(core::Program& p) {
    std::vector<forms::Form*> cells;
    for (forms::Form* f : p.runtime.OpenForms()) {
        if (f && memory::IsCell(*f)) cells.push_back(f);
    }
    return cells;
}

}  // namespace

std::string HelpFilePathAtLoad(core::Program& p) {
    const forms::Services& services = p.runtime.GetServices();
    const std::filesystem::path folder = services.help ? services.help->ExecutableFolder() : "";
    const std::string installed =
        (folder / ".." / "share" / "lathmark" / "guide" / "lathmark.html").lexically_normal();
    const std::string beside = (folder / "guide" / "lathmark.html").lexically_normal();
    const bool found = services.files && services.files->Exists(installed);
    return (found ? installed : beside) + std::string(1, '\0');
}

void MenuHelpContentsClick(core::Program& p) {
    // No test that the file is there: a missing guide is the help's to tell.
    if (forms::HelpSystem* help = p.runtime.GetServices().help) help->ShowContents(p.HelpFilePath);
}

void MenuAboutClick(core::Program& p) {
    // The calculator stays in the band until the end, with the others.
    if (p.frmTape->Visible()) SetTopMost(*p.frmTape, false);
    if (p.Converter->Visible()) SetTopMost(*p.Converter, false);
    for (forms::Form* cell : OpenCells(p)) SetTopMost(*cell, false);

    // Each showing builds the box anew; closing it drops it.
    forms::Form& about = MakeAboutBox(p.runtime);
    about.SetInstance(true);
    about.Load = [&about] { AboutFormLoad(about); };
    about.Get("cmdOK").Click = [&p, &about] { AboutOkClick(p, about); };
    about.Get("cmdSysInfo").Click = [&p] { AboutSysInfoClick(p); };
    p.runtime.ShowModal(about);

    if (p.frmTape->Visible()) SetTopMost(*p.frmTape, true);
    SetTopMost(*p.Calculator, true);
    if (p.Converter->Visible()) SetTopMost(*p.Converter, true);
    for (forms::Form* cell : OpenCells(p)) SetTopMost(*cell, true);
}

void AboutFormLoad(forms::Form& about) {
    about.Get("lblVersion")
        .SetCaption("Version " + std::to_string(kVersionMajor) + "." +
                    std::to_string(kVersionMinor) + "." + std::to_string(kVersionRevision));
    about.Get("lblTitle").SetCaption(kAppTitle);
    about.Get("lblDescription").SetCaption(kDescription);
    about.Get("lblDisclaimer").SetCaption(kDisclaimer);
}

void AboutOkClick(core::Program& p, forms::Form& about) {
    p.runtime.Unload(about);
}

void AboutSysInfoClick(core::Program& p) {
    forms::Services& services = p.runtime.GetServices();
    const std::optional<std::string> tool =
        services.systemInfo ? services.systemInfo->Find() : std::nullopt;
    if (!tool) {
        if (services.messages) {
            services.messages->Show(kNoSystemInfo, kAppTitle, forms::MessageButtons::OkOnly,
                                    forms::MessageIcon::None);
        }
        return;
    }
    // A tool that will not start ends the handler without a word.
    services.systemInfo->Start(*tool);
}

void WireHelpAbout(core::Program& p) {
    p.Calculator->GetMenu("mnuHelpContents").Click = [&p] { MenuHelpContentsClick(p); };
    p.Calculator->GetMenu("mnuAbout").Click = [&p] { MenuAboutClick(p); };
}

}  // namespace shell
