#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

/// Finds names in a list in constant time. The list keeps the names; the index keeps for each name the position where
/// it stands first, in an open-addressing hash table with linear probing.
///
/// A name's hash is computed once, with `hash`, and can then be used with several indexes.
class TXNameIndex {
public:
    static constexpr std::int32_t none = -1;

    /// The hash of a name. It differs from one run of the program to the next.
    static std::uint32_t hash(std::u16string_view name);

    /// The first position of `name`, whose hash is `nameHash`, or -1. `nameAt` gives the name at a position.
    template <class NameAt>
    std::int32_t find(std::u16string_view name, std::uint32_t nameHash, const NameAt& nameAt) const {
        return slots_.empty() ? none : slots_[slotOf(name, nameHash, nameAt)].position;
    }

    /// Notes that `name` stands at `position`, unless an earlier position is known.
    template <class NameAt>
    void insert(std::u16string_view name, std::uint32_t nameHash, std::int32_t position, const NameAt& nameAt) {
        if ((used_ + 1) * 4 > slots_.size() * 3) {
            grow();
        }
        Slot& slot = slots_[slotOf(name, nameHash, nameAt)];
        if (slot.position == none) {
            slot = {position, nameHash};
            ++used_;
        }
    }

    /// Forgets that `name` stands at `position`, the last of the list, unless an earlier position is known.
    template <class NameAt>
    void removeLast(std::u16string_view name, std::uint32_t nameHash, std::int32_t position, const NameAt& nameAt) {
        if (find(name, nameHash, nameAt) == position) {
            free(slotOf(name, nameHash, nameAt));
        }
    }

    /// Forgets every name.
    void clear();

private:
    struct Slot {
        std::int32_t position = none;
        std::uint32_t hash = 0;
    };

    std::size_t mask() const { return slots_.size() - 1; }

    // Where the name is, or the free slot where it belongs.
    template <class NameAt>
    std::size_t slotOf(std::u16string_view name, std::uint32_t nameHash, const NameAt& nameAt) const {
        for (std::size_t slot = nameHash & mask();; slot = (slot + 1) & mask()) {
            const auto& [position, slotHash] = slots_[slot];
            if (position == none || (slotHash == nameHash && nameAt(position) == name)) {
                return slot;
            }
        }
    }

    void grow();
    void free(std::size_t slot);
    void place(Slot entry);

    std::vector<Slot> slots_;  ///< A power of two of them, at most three quarters used.
    std::size_t used_ = 0;
};
