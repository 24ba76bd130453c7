// JSON to a C++ stream, piece by piece, so that a dump needs no tree of its own in memory.
#pragma once

#include <array>
#include <ostream>
#include <string_view>

#include <rapidjson/writer.h>

namespace quorrel {

/// The output side that the JSON library asks for.
class JsonSink {
  public:
    using Ch = char;
    explicit JsonSink(std::ostream& out) : out_(out) {}
    JsonSink(const JsonSink&) = delete;
    JsonSink& operator=(const JsonSink&) = delete;
    ~JsonSink() { Flush(); }

    void Put(char c) {
        if (used_ == buffer_.size()) Flush();
        buffer_[used_++] = c;
    }
    void Flush() {
        out_.write(buffer_.data(), static_cast<std::streamsize>(used_));
        used_ = 0;
    }

  private:
    std::ostream& out_;
    std::array<char, 65536> buffer_{};
    std::size_t used_ = 0;
};

using JsonWriter = rapidjson::Writer<JsonSink>;

inline void WriteString(JsonWriter& json, std::string_view text) {
    json.String(text.data(), static_cast<rapidjson::SizeType>(text.size()));
}

inline void WriteKey(JsonWriter& json, std::string_view key) {
    json.Key(key.data(), static_cast<rapidjson::SizeType>(key.size()));
}

}  // namespace quorrel
