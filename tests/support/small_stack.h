// Hosts run plug-ins on threads of their own, whose stacks may be small.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include <pthread.h>

#include <gtest/gtest.h>

namespace XPJ {

inline void RunOnSmallStack(const std::function<void()>& work)
{
    constexpr std::size_t kSmallStack = std::size_t{256} * 1024;
    const auto call = [](void* function) -> void* {
        (*static_cast<const std::function<void()>*>(function))();
        return nullptr;
    };
    pthread_attr_t attributes;
    ASSERT_EQ(pthread_attr_init(&attributes), 0);
    ASSERT_EQ(pthread_attr_setstacksize(&attributes, kSmallStack), 0);
    pthread_t thread{};
    ASSERT_EQ(pthread_create(&thread, &attributes, call, const_cast<std::function<void()>*>(&work)),
              0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
}

inline std::string Repeated(std::string_view text, std::size_t count)
{
    std::string result;
    for (std::size_t i = 0; i < count; ++i)
        result += text;
    return result;
}

} // namespace XPJ
