// The path rules. Input: the path, the base.
#include "fuzz_support.hpp"
#include "project/paths.hpp"

using namespace quorrel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const std::string path = DecodeProjectText(std::string(input.Line()), kWesternCodePage).text;
    const std::string base = input.RestAsText();
    const std::size_t longest = path.size() + base.size() + 1;
    fuzz::Check(MakeFullPath(path, base).size() <= longest, "a full path is made of its parts");
    fuzz::Check(MakeFullPathRel(path, base).size() <= longest, "a full path is made of its parts");
    (void)MakeRelPathRel(path, base);
    (void)GetRelativePath(path, base);
    (void)LocationOf(path, base);
    (void)RevFormatRGBString(path);
    return 0;
}
