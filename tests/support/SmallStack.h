#pragma once

#include <gtest/gtest.h>

#include <pthread.h>

#include <cstddef>

namespace support {

/// Runs `call` on a thread whose stack has 256 KB, and waits for it.
template <typename Call>
void runOnSmallStack(Call call)
{
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    ASSERT_EQ(0, pthread_attr_setstacksize(&attributes, std::size_t(256) << 10));
    pthread_t thread;
    auto const run = [](void *argument) -> void * {
        (*static_cast<Call *>(argument))();
        return nullptr;
    };
    ASSERT_EQ(0, pthread_create(&thread, &attributes, run, &call));
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
}

} // namespace support
