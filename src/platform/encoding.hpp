// The encoding of a project file: found on reading, kept for writing.
#pragma once

#include <string>
#include <string_view>

#include "platform/code_page.hpp"

namespace quorrel {

/// How a file's bytes stand for text.
struct TextEncoding {
    enum class Form { kAnsi, kUtf8, kUtf8WithMark, kUtf16LittleEndian, kUtf16BigEndian };
    Form form = Form::kAnsi;
    int code_page = kWesternCodePage;  // for kAnsi

    friend bool operator==(const TextEncoding&, const TextEncoding&) = default;
};

struct DecodedText {
    std::string text;  // UTF-8
    TextEncoding encoding;
};

/// Finds the encoding of `bytes`: a byte-order mark, else valid UTF-8 beyond ASCII, else the
/// code page.
[[nodiscard]] TextEncoding DetectEncoding(std::string_view bytes, int code_page);

/// Decodes a project file. In the ANSI form a decimal reference ("&#1078;") to a character that
/// the code page lacks becomes that character; every other reference stays as text.
[[nodiscard]] DecodedText DecodeProjectText(std::string bytes, int code_page);

/// Decodes an XML file: by its mark, else by its declaration, else as a project file. The Latin
/// encodings are read as their Windows relatives.
[[nodiscard]] DecodedText DecodeXmlText(std::string bytes, int code_page);

/// The inverse: a character that the code page lacks is written as a decimal reference, and a
/// byte that had no meaning on reading is written as that byte.
[[nodiscard]] std::string EncodeProjectText(std::string_view text, const TextEncoding& encoding);

/// What to write for an XML text whose declaration says ISO-8859-1: the text as it is where that
/// gives the same text back, to any reader of XML. Elsewhere it is to be UTF-8, and says so: a
/// reference in place of a character is not read everywhere.
[[nodiscard]] DecodedText XmlToWrite(std::string text);

/// Decodes `bytes` by `encoding`, references left alone.
[[nodiscard]] std::string DecodeText(std::string_view bytes, const TextEncoding& encoding);

}  // namespace quorrel
