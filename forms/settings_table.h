// The entries of a settings store held in memory: text values by section
// and key, in the order they were first written, found without regard to
// the case of the section or the key (two spellings of a key reach the one
// entry, which keeps the spelling it was first written with).
//
// Finding or setting an entry takes the same time however many there are,
// and the grouping of the entries by section for a file takes one look at
// each, so that reading or writing a settings file of any size costs in
// proportion to its size. Steps() counts the entries the table has looked
// at, which is what the tests of that cost count.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "forms/services.h"

namespace forms {

class SettingsTable {
  public:
    using Entry = SettingsStore::Entry;

    // The value of the entry, or nothing when there is none.
    const std::string* Find(std::string_view section, std::string_view key) const;
    // Creates the entry or replaces its value: its place in the table.
    std::size_t Set(const std::string& section, const std::string& key, const std::string& value);

    // In the order of first writing.
    const std::vector<Entry>& Entries() const { return entries_; }
    std::size_t Size() const { return entries_.size(); }

    // The places of the entries grouped by section: sections in the order
    // of their first use, each section's keys in the order of first
    // writing, as a settings file lists them.
    std::vector<std::size_t> GroupedBySection() const;

    // The entries looked at so far, by every finding, setting and grouping.
    std::size_t Steps() const { return steps_; }

  private:
    std::vector<Entry> entries_;
    // The section and key folded to one case, each with its length: the
    // place of the entry.
    std::unordered_map<std::string, std::size_t> index_;
    mutable std::size_t steps_ = 0;
};

}  // namespace forms
