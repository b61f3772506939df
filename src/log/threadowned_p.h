#pragma once

namespace NARV::INTERNAL {

//! This thread's own T. Null when the thread has destroyed it already: the main thread does so
//! before its static objects go, and those may still log.
template<typename T>
T *threadOwned()
{
    thread_local bool ended = false;
    struct Owner
    {
        T value;
        ~Owner() { ended = true; }
    };
    if (ended)
        return nullptr;
    thread_local Owner owner;
    return &owner.value;
}

} // namespace NARV::INTERNAL
