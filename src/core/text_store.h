// Copies of texts that live as long as the store, also after it was moved.
#pragma once

#include <cstring>
#include <memory>
#include <memory_resource>
#include <string_view>

namespace XPJ {

class TextStore {
public:
    std::string_view Keep(std::string_view text)
    {
        if (text.empty())
            return {};
        char* const copy = static_cast<char*>(memory_->allocate(text.size(), alignof(char)));
        std::memcpy(copy, text.data(), text.size());
        return {copy, text.size()};
    }

private:
    using Memory = std::pmr::monotonic_buffer_resource;
    std::unique_ptr<Memory> memory_ = std::make_unique<Memory>();
};

} // namespace XPJ
