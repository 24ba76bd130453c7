// A file's bytes decoded and encoded. Input: the code page, the bytes.
#include "fuzz_support.hpp"
#include "platform/encoding.hpp"
#include "platform/unicode.hpp"

using namespace quorrel;

/// The double-byte pages stand at the end: they have characters with two forms, of which
/// writing knows one.
static constexpr int kCodePages[] = {1252, 1250, 1251, 1253,  1254, 1255, 1256, 1257,
                                     1258, 874,  1,    65001, 932,  936,  949,  950};
static constexpr unsigned kSingleByte = 12;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const unsigned choice = input.Choice(std::size(kCodePages));
    const std::string bytes(input.Rest());
    const DecodedText decoded = DecodeProjectText(bytes, kCodePages[choice]);
    fuzz::Check(IsValidUtf8(decoded.text), "what is decoded is well-formed");
    const std::string encoded = EncodeProjectText(decoded.text, decoded.encoding);
    const bool ansi = decoded.encoding.form == TextEncoding::Form::kAnsi;
    if (!ansi || choice < kSingleByte) fuzz::Check(encoded == bytes, "the bytes come back");
    return 0;
}
