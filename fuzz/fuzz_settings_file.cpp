// The settings file reader on any bytes. Whatever it keeps of a file, the
// file it writes of that reads back as exactly the same entries.
#include <cstdint>
#include <fstream>
#include <string>

#include "forms/settings_file.h"
#include "fuzz/fuzz_check.h"
#include "fuzz/fuzz_scratch.h"

namespace {

std::string Describe(const std::vector<forms::SettingsStore::Entry>& entries) {
    std::string text;
    for (const auto& e : entries) text += "[" + e.section + "] " + e.key + "=" + e.value + "\n";
    return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::filesystem::path file = FuzzScratchFolder() / "Lathmark.conf";
    {
        std::ofstream out(file, std::ios::binary | std::ios::trunc);
        out.write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    }
    const forms::FileSettingsStore read(file);
    const auto entries = read.Entries();
    for (const auto& e : entries) {
        FUZZ_CHECK(read.Read(e.section, e.key) == e.value, "entry [%s] %s not found again",
                   e.section.c_str(), e.key.c_str());
    }

    FUZZ_CHECK(read.Save(), "the file could not be written back");
    const forms::FileSettingsStore again(file);
    const auto back = again.Entries();
    const bool same = back.size() == entries.size() && [&] {
        for (std::size_t i = 0; i < back.size(); ++i) {
            if (back[i].section != entries[i].section || back[i].key != entries[i].key ||
                back[i].value != entries[i].value) {
                return false;
            }
        }
        return true;
    }();
    FUZZ_CHECK(same, "read:\n%swritten and read again:\n%s", Describe(entries).c_str(),
               Describe(back).c_str());
    return 0;
}
