// Ownership of a class that only a higher room can see whole: the owner knows it by name, and what destroys it
// comes along with it.
#pragma once

#include <memory>
#include <utility>

template <class T>
using OwnedByName = std::unique_ptr<T, void (*)(T*)>;

template <class T>
[[nodiscard]] OwnedByName<T> NothingOwned() {
    return {nullptr, [](T*) {}};
}

template <class T, class... Arguments>
[[nodiscard]] OwnedByName<T> MakeOwned(Arguments&&... arguments) {
    return {new T(std::forward<Arguments>(arguments)...), [](T* object) { delete object; }};
}
