// Texts between the logic, which has UTF-8, and the toolkit.
#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace quorrel {

inline QString ToQt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
inline std::string FromQt(const QString& text) {
    return text.toStdString();
}

/// For menus, tabs and buttons: a "&" that is part of the text and marks no letter.
inline QString WithoutMnemonics(QString text) {
    return text.replace('&', "&&");
}

/// For tool tips, which would take a text with a tag in it for HTML.
inline QString PlainToolTip(const QString& text) {
    return text.isEmpty() ? text
                          : "<span style='white-space:pre'>" + text.toHtmlEscaped() + "</span>";
}

}  // namespace quorrel
