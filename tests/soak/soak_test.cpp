// The long random session as a test. SOAK_STEPS sets the number of steps
// (100000 unless given), SOAK_SEED the seed (13 unless given): the seed that
// a failure prints reproduces it.
#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <string>

#include "soak_session.h"

namespace {

long EnvNumber(const char* name, long fallback) {
    const char* text = std::getenv(name);
    if (!text || !*text) return fallback;
    return std::strtol(text, nullptr, 10);
}

TEST(Soak, ARandomSessionKeepsEveryInvariant) {
    const auto seed = static_cast<std::uint64_t>(EnvNumber("SOAK_SEED", 13));
    const long steps = EnvNumber("SOAK_STEPS", 100000);
    soak::Session session(seed);
    const std::string failure = session.Run(steps);
    if (!failure.empty()) ADD_FAILURE() << failure;
    std::cout << steps << " steps of seed " << seed << ": " << session.restarts << " starts, "
              << session.cellsMade << " cells made, " << session.drops << " drops ("
              << session.converterDrops << " on the converter), " << session.fileReads << " opens, "
              << session.fileWrites << " saves, longest tape " << session.longestTape << " rows\n";
    // The session must have reached what it is meant to drive.
    if (steps >= 10000) {
        EXPECT_GT(session.restarts, 0);
        EXPECT_GT(session.cellsMade, 0);
        EXPECT_GT(session.drops, 0);
        EXPECT_GT(session.fileReads, 0);
        EXPECT_GT(session.fileWrites, 0);
    }
}

}  // namespace
