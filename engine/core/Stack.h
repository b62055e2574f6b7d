// Stack<T>: a growable array of plain values (vectors, matrices, pointers, vertex records). The
// block holds capacity + 1 zeroed elements, grows by doubling and is copied bytewise, so T must
// be trivially copyable: no constructor or destructor of T ever runs. Indexing is unchecked.
// Copies are deep (a copy owns its own block); pop() takes from the top, any other removal is
// left to the owners.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <type_traits>
#include <utility>

namespace vorlik {

template <typename T> class Stack {
    static_assert(std::is_trivially_copyable_v<T>, "Stack copies its elements bytewise");

public:
    T* data;           // capacity + 1 elements, zero-filled when allocated
    uint32_t capacity; // usable elements
    uint32_t count;    // elements in use, from index 0

    explicit Stack(uint32_t initialCapacity = 16)
        : data(allocate(initialCapacity)), capacity(initialCapacity), count(0)
    {
    }

    Stack(const Stack& other) : data(allocate(other.capacity)), capacity(other.capacity), count(other.count)
    {
        std::memcpy(static_cast<void*>(data), other.data, sizeof(T) * (capacity + 1));
    }

    Stack& operator=(const Stack& other)
    {
        Stack copy(other);
        std::swap(data, copy.data);
        std::swap(capacity, copy.capacity);
        std::swap(count, copy.count);
        return *this;
    }

    ~Stack() { std::free(data); }

    void push(const T& value)
    {
        // value may be one of our own elements, which growing frees: take it out first.
        const T pushed = value;
        // Doubling keeps pushes cheap; a stack created empty starts at one element instead.
        if (count == capacity) reserve(capacity == 0 ? 1 : capacity * 2);
        data[count] = pushed;
        ++count;
    }

    // Removes the top element and returns it. An empty stack stays empty and gives an element of
    // zero bytes, like a freshly allocated one, so a pop too many reads no stale or freed data.
    T pop()
    {
        if (count == 0) {
            // Copied from the spare slot only to get a T without asking T for a default constructor.
            T zeroed = data[capacity];
            std::memset(static_cast<void*>(&zeroed), 0, sizeof(T));
            return zeroed;
        }
        --count;
        return data[count];
    }

    // Grows the block to hold n elements, keeping the elements and their order; never shrinks.
    void reserve(uint32_t n)
    {
        if (n <= capacity) return;
        T* grown = allocate(n);
        std::memcpy(static_cast<void*>(grown), data, sizeof(T) * capacity);
        std::free(data);
        data = grown;
        capacity = n;
    }

    // Forgets the elements but keeps the block, for lists that are refilled every frame.
    void clear() { count = 0; }

    uint32_t size() const { return count; }
    bool empty() const { return count == 0; }

    T& operator[](uint32_t i) { return data[i]; }
    const T& operator[](uint32_t i) const { return data[i]; }

    T* begin() { return data; }
    T* end() { return data + count; }
    const T* begin() const { return data; }
    const T* end() const { return data + count; }

private:
    static T* allocate(uint32_t capacity)
    {
        return static_cast<T*>(std::calloc(static_cast<size_t>(capacity) + 1, sizeof(T)));
    }
};

} // namespace vorlik
