#include "forms/settings_table.h"

#include "forms/case_insensitive.h"

namespace forms {

namespace {

// The key of the index: both names folded, the section's length first so
// that no two pairs of names give the same key, whatever bytes they hold.
std::string IndexKey(std::string_view section, std::string_view key) {
    std::string folded = std::to_string(section.size());
    folded += ':';
    folded += FoldCase(section);
    folded += FoldCase(key);
    return folded;
}

}  // namespace

const std::string* SettingsTable::Find(std::string_view section, std::string_view key) const {
    ++steps_;
    const auto it = index_.find(IndexKey(section, key));
    if (it == index_.end()) return nullptr;
    return &entries_[it->second].value;
}

std::size_t SettingsTable::Set(const std::string& section, const std::string& key,
                               const std::string& value) {
    const auto [it, made] = index_.try_emplace(IndexKey(section, key), entries_.size());
    ++steps_;
    if (made) {
        entries_.push_back({section, key, value});
    } else {
        entries_[it->second].value = value;
    }
    return it->second;
}

std::vector<std::size_t> SettingsTable::GroupedBySection() const {
    std::unordered_map<std::string, std::size_t> groupOf;
    std::vector<std::vector<std::size_t>> groups;
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        ++steps_;
        const auto [it, made] = groupOf.try_emplace(FoldCase(entries_[i].section), groups.size());
        if (made) groups.emplace_back();
        groups[it->second].push_back(i);
    }
    std::vector<std::size_t> order;
    order.reserve(entries_.size());
    for (const auto& group : groups) order.insert(order.end(), group.begin(), group.end());
    return order;
}

}  // namespace forms
