#include "cli/routines.hpp"

#include <functional>
#include <istream>
#include <optional>
#include <ostream>
#include <string>

#include <rapidjson/document.h>

#include "cli/cli.hpp"
#include "cli/json_stream.hpp"
#include "platform/text.hpp"
#include "project/paths.hpp"
#include "project/tag_value.hpp"

namespace quorrel {
namespace {

using Value = rapidjson::Value;
using Result = std::optional<rapidjson::Document>;

std::string TextOf(const Value& object, const char* key) {
    const auto member = object.FindMember(key);
    if (member == object.MemberEnd() || !member->value.IsString()) return {};
    return {member->value.GetString(), member->value.GetStringLength()};
}

std::int64_t NumberOf(const Value& value, std::int64_t otherwise) {
    if (value.IsInt64()) return value.GetInt64();
    return value.IsString() ? LeadingNumber(value.GetString()) : otherwise;
}

std::int64_t NumberOf(const Value& object, const char* key, std::int64_t otherwise) {
    const auto member = object.FindMember(key);
    return member == object.MemberEnd() ? otherwise : NumberOf(member->value, otherwise);
}

Result TextResult(const std::string& text) {
    rapidjson::Document result;
    result.SetString(text.data(), static_cast<rapidjson::SizeType>(text.size()),
                     result.GetAllocator());
    return result;
}

Result NumberResult(std::int64_t number) {
    rapidjson::Document result;
    result.SetInt64(number);
    return result;
}

Result TagValueOf(const Value& line) {
    const std::string text = TextOf(line, "text");
    const std::int64_t mode = NumberOf(line, "mode", 0);
    if (mode < 0 || mode > 2) return std::nullopt;
    const std::int64_t start = NumberOf(line, "start", 1);
    std::size_t byte_start = 0;  // before the text: no result
    if (start >= 1) byte_start = OffsetOfCharacter(text, static_cast<std::size_t>(start - 1)) + 1;
    return TextResult(TagValue(text, byte_start, TextOf(line, "attribute"), TextOf(line, "value"),
                               static_cast<TagMode>(mode)));
}

Result PathOf(const Value& line) {
    const auto args = line.FindMember("args");
    if (args == line.MemberEnd() || !args->value.IsArray() || args->value.Empty())
        return std::nullopt;
    const Value& first = args->value[0];
    const auto text = [&](rapidjson::SizeType i) {
        if (i >= args->value.Size() || !args->value[i].IsString()) return std::string();
        return std::string(args->value[i].GetString(), args->value[i].GetStringLength());
    };
    const std::string fn = TextOf(line, "fn");
    if (fn == "MakeFullPath") return TextResult(MakeFullPath(text(0), TextOf(line, "proj_path")));
    if (fn == "MakeFullPathRel") return TextResult(MakeFullPathRel(text(0), text(1)));
    if (fn == "MakeRelPathRel") return TextResult(MakeRelPathRel(text(0), text(1)));
    if (fn == "GetRelativePath")
        return TextResult(GetRelativePath(text(0), TextOf(line, "main_path")));
    if (fn == "FormatRGBString") {
        return TextResult(FormatRGBString(static_cast<std::int32_t>(NumberOf(first, 0))));
    }
    if (fn == "RevFormatRGBString") return NumberResult(RevFormatRGBString(text(0)));
    return std::nullopt;
}

int RunLines(std::istream& in, std::ostream& out, std::ostream& err,
             const std::function<Result(const Value&)>& routine) {
    std::string line;
    for (int number = 1; std::getline(in, line); ++number) {
        if (TrimBlanksAndTabs(line).empty() || line == "\r") continue;
        rapidjson::Document document;
        // Iterative: a line may be nested as deeply as it likes.
        document.Parse<rapidjson::kParseIterativeFlag>(line.data(), line.size());
        Result result;
        if (!document.HasParseError() && document.IsObject()) result = routine(document);
        if (!result) {
            err << "quorrel-cli: line " << number << " is no call of a known routine\n";
            return exit_code::kUsage;
        }
        JsonSink sink(out);
        JsonWriter json(sink);
        json.StartObject();
        WriteKey(json, "result");
        result->Accept(json);
        json.EndObject();
        sink.Put('\n');
    }
    return exit_code::kSuccess;
}

}  // namespace

int RunTagValueLines(std::istream& in, std::ostream& out, std::ostream& err) {
    return RunLines(in, out, err, TagValueOf);
}

int RunPathLines(std::istream& in, std::ostream& out, std::ostream& err) {
    return RunLines(in, out, err, PathOf);
}

}  // namespace quorrel
