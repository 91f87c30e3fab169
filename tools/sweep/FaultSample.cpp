#include "tools/sweep/FaultSample.h"

#include <map>
#include <random>
#include <utility>

namespace {

/// The same order everywhere, which the standard's own shuffling does not promise.
void Shuffle(std::vector<Failure>& failures, std::mt19937_64& random) {
    for (std::size_t left = failures.size(); left > 1; --left) {
        std::swap(failures[left - 1], failures[random() % left]);
    }
}

} // namespace

std::vector<Failure> SampleOf(const std::vector<Failure>& failures, std::size_t count, std::uint64_t seed) {
    std::map<FaultType, std::vector<Failure>> left;
    for (const Failure& failure : failures) {
        left[failure.faultType].push_back(failure);
    }
    std::mt19937_64 random(seed);
    for (auto& [faultType, ofVariant] : left) {
        Shuffle(ofVariant, random);
    }
    std::vector<Failure> chosen;
    while (chosen.size() < count && !left.empty()) {
        for (auto group = left.begin(); group != left.end() && chosen.size() < count;) {
            chosen.push_back(group->second.back());
            group->second.pop_back();
            group = group->second.empty() ? left.erase(group) : std::next(group);
        }
    }
    return chosen;
}

std::vector<Failure> ShardOf(const std::vector<Failure>& failures, std::size_t shard, std::size_t shards) {
    std::vector<Failure> share;
    for (std::size_t index = shard - 1; index < failures.size(); index += shards) {
        share.push_back(failures[index]);
    }
    return share;
}
