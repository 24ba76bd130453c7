// The title and the encoding of a topic file. Input: the bytes.
#include "fuzz_support.hpp"
#include "platform/topic_encoding.hpp"
#include "platform/unicode.hpp"
#include "project/topic_title.hpp"

using namespace quorrel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes = fuzz::Input(data, size).Rest();
    (void)ScanTopicTitle(bytes, "Z:\\help\\page.htm");
    const std::string text = DecodeText(bytes, TopicEncoding(bytes, kWesternCodePage));
    fuzz::Check(IsValidUtf8(text), "what is decoded is well-formed");
    (void)ScanTopicTitle(text, "Z:\\help\\page.htm");
    return 0;
}
