// SPDX-License-Identifier: MIT
// Memory for whole files, taken from the system in one piece: a page that comes with its first use
// costs more than reading it, and nothing has to be zero before it is read.
#pragma once

#include <cstddef>
#include <cstdint>
#include <new>
#include <sys/mman.h>
#include <vector>

namespace fennel {

template <class T>
struct FileMemory {
    using value_type = T;

    T* allocate(std::size_t count)
    {
        if (isSmall(count))
            return static_cast<T*>(::operator new(count * sizeof(T)));
        void* const memory = ::mmap(nullptr, count * sizeof(T), PROT_READ | PROT_WRITE,
                                    MAP_PRIVATE | MAP_ANONYMOUS | MAP_POPULATE, -1, 0);
        if (memory == MAP_FAILED)
            throw std::bad_alloc();
        return static_cast<T*>(memory);
    }
    void deallocate(T* memory, std::size_t count) noexcept
    {
        if (isSmall(count))
            ::operator delete(memory);
        else
            ::munmap(memory, count * sizeof(T));
    }
    // What resize() adds is not set.
    template <class Made>
    void construct(Made* at) noexcept
    {
        ::new (static_cast<void*>(at)) Made;
    }
    bool operator==(const FileMemory&) const = default;

private:
    static bool isSmall(std::size_t count) { return count * sizeof(T) < std::size_t{64} * 1024; }
};

using FileBytes = std::vector<std::uint8_t, FileMemory<std::uint8_t>>;

} // namespace fennel
