// Two copies of the program on one settings store are separate calculators;
// both write the settings at their end, and the last one wins.
#include <gtest/gtest.h>

#include "forms/headless_services.h"
#include "shell/lathmark_app.h"

namespace {

TEST(SecondCopy, BothWriteAndTheLastOneWins) {
    forms::CountingBeeper beeper;
    forms::RecordingMessageBoxes messages;
    forms::MemorySettingsStore store;
    const forms::Services services{&beeper, &messages, &store};
    shell::LathmarkApp first(services, forms::ScreenInfo{});
    shell::LathmarkApp second(services, forms::ScreenInfo{});
    first.Start();
    second.Start();

    first.Program().calc->Readout.SetCaption("5");
    first.Program().calc->Equal.Click();
    EXPECT_EQ(second.Program().tape->TapeRowCount()[0], 0);

    first.Program().Calculator->ReportGeometry(100, 200, 3615, 3590);
    second.Program().Calculator->ReportGeometry(300, 400, 3615, 3590);
    second.Runtime().Unload(*second.Program().Calculator);
    first.Runtime().Unload(*first.Program().Calculator);
    EXPECT_EQ(store.Read("Settings", "CalcLeft").value_or(""), "100");
    EXPECT_EQ(store.Read("Settings", "CalcTop").value_or(""), "200");
}

}  // namespace
