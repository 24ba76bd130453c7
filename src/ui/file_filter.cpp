#include "ui/file_filter.hpp"

#include "ui/qt_text.hpp"

namespace quorrel {
namespace {

QString WhateverCase(const QString& pattern) {
    QString result;
    for (const QChar c : pattern) {
        const bool has_case = c.toLower() != c.toUpper();
        result += has_case ? QString("[%1%2]").arg(c.toLower()).arg(c.toUpper()) : QString(c);
    }
    return result;
}

QString NameFilter(const QString& text, const QString& patterns) {
#ifndef Q_OS_WIN
    if (patterns.contains("*.exe", Qt::CaseInsensitive)) return "All files (*)";
#endif
    QStringList converted;
    for (const QString& pattern : patterns.split(';', Qt::SkipEmptyParts)) {
        converted << WhateverCase(pattern.trimmed());
    }
    return text.section('(', 0, 0).trimmed() + " (" + converted.join(' ') + ")";
}

}  // namespace

QStringList NameFilters(std::string_view classic_filter) {
    const QStringList parts = ToQt(classic_filter).split('|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        filters << NameFilter(parts[i], parts[i + 1]);
    }
    return filters;
}

QString FirstEnding(std::string_view classic_filter) {
    const QString pattern = ToQt(classic_filter).section('|', 1, 1).section(';', 0, 0);
    return pattern.startsWith("*.") && pattern != "*.*" ? pattern.mid(2) : QString();
}

}  // namespace quorrel
