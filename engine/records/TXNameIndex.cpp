#include "engine/records/TXNameIndex.h"

#include <cstring>
#include <utility>

namespace {

constexpr std::size_t firstSize = 32;
constexpr std::ptrdiff_t charactersAtOnce = sizeof(std::uint64_t) / sizeof(char16_t);

// Multiplicative mixing (Knuth, The Art of Computer Programming 6.4) with the golden ratio's 64-bit fraction.
std::uint64_t mixed(std::uint64_t hash, std::uint64_t piece) {
    constexpr std::uint64_t goldenRatio = 0x9E3779B97F4A7C15;
    constexpr int half = 32;
    const std::uint64_t product = (hash ^ piece) * goldenRatio;
    return product ^ (product >> half);
}

// Differs from run to run, so that nobody can choose names that collide: where a variable lies in memory is not known
// beforehand.
std::uint64_t seed() {
    static const char somewhere = 0;
    return reinterpret_cast<std::uintptr_t>(&somewhere);
}

}  // namespace

std::uint32_t TXNameIndex::hash(std::u16string_view name) {
    std::uint64_t hash = mixed(seed(), name.size());
    const char16_t* at = name.data();
    const char16_t* const end = at + name.size();
    for (; end - at >= charactersAtOnce; at += charactersAtOnce) {
        std::uint64_t piece = 0;
        std::memcpy(&piece, at, sizeof piece);
        hash = mixed(hash, piece);
    }
    std::uint64_t rest = 0;
    for (; at != end; ++at) {
        rest = rest << 16U | *at;
    }
    return static_cast<std::uint32_t>(mixed(hash, rest));
}

void TXNameIndex::clear() {
    slots_.clear();
    used_ = 0;
}

void TXNameIndex::grow() {
    const std::size_t size = slots_.empty() ? firstSize : slots_.size() * 2;
    const std::vector<Slot> old = std::exchange(slots_, std::vector<Slot>(size));
    for (const Slot& entry : old) {
        if (entry.position != none) {
            place(entry);
        }
    }
}

// What stands behind the slot moves up where it would no longer be found (Knuth, The Art of Computer Programming 6.4,
// algorithm R).
void TXNameIndex::free(std::size_t slot) {
    for (std::size_t next = (slot + 1) & mask(); slots_[next].position != none; next = (next + 1) & mask()) {
        const std::size_t home = slots_[next].hash & mask();
        const bool isFoundFromBehind = ((next - home) & mask()) < ((next - slot) & mask());
        if (!isFoundFromBehind) {
            slots_[slot] = slots_[next];
            slot = next;
        }
    }
    slots_[slot] = {};
    --used_;
}

void TXNameIndex::place(Slot entry) {
    std::size_t slot = entry.hash & mask();
    while (slots_[slot].position != none) {
        slot = (slot + 1) & mask();
    }
    slots_[slot] = entry;
}
