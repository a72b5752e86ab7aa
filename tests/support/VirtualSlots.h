#pragma once

#include <cstddef>
#include <cstring>
#include <string>
#include <vector>

/// The places of virtual members in their class's table, as GCC and Clang lay it out. A virtual destructor takes two
/// places; it has no address to ask for, and is seen as the gap between its neighbours.
#if defined(__GXX_ABI_VERSION)
#define TESTS_KNOW_VIRTUAL_SLOTS 1

/// The number of the member's place, counted from 0; -1 for a member that is not virtual.
/// An overloaded member is named by a cast: slotOf(static_cast<void (C::*)(int)>(&C::set)).
template <typename Function, typename Class>
int slotOf(Function Class::*member) {
    std::ptrdiff_t parts[2] = {};
    static_assert(sizeof(parts) == sizeof(member));
    std::memcpy(parts, &member, sizeof(member));
#if defined(__arm__) || defined(__aarch64__)
    const bool isVirtual = (parts[1] & 1) != 0;
    const std::ptrdiff_t offset = parts[0];
#else
    const bool isVirtual = (parts[0] & 1) != 0;
    const std::ptrdiff_t offset = parts[0] - 1;
#endif
    return isVirtual ? static_cast<int>(offset / static_cast<std::ptrdiff_t>(sizeof(void*))) : -1;
}

/// The number of places in the class's table: where a virtual member added by a derived class would stand. The class
/// may be abstract; it must not be final.
template <typename Class>
int slotCount() {
    struct Derived : Class {
        virtual void added() {}
    };
    return slotOf(&Derived::added);
}

/// One line of a table of slots: the literal name for the failure's message, and the slot found.
struct NamedSlot {
    std::string name;
    int slot;
};

/// Text that says which of the members does not stand at its place; empty when they stand one after the other from
/// `first` on.
inline std::string misplacedSlots(int first, const std::vector<NamedSlot>& slots) {
    std::string faults;
    for (const NamedSlot& named : slots) {
        if (named.slot != first)
            faults += named.name + " is at " + std::to_string(named.slot) + ", not " + std::to_string(first) + "; ";
        ++first;
    }
    return faults;
}

/// A row of such a table.
#define NAMED_SLOT(Class, member) \
    NamedSlot { #member, slotOf(&Class::member) }
#endif
