// The file of a new topic, made from a template.
#pragma once

#include <string>
#include <string_view>

namespace quorrel {

struct MainForm;

/// Stands in a template where the title of the topic goes.
inline constexpr std::string_view kTitleMark = "[TITLE]";

/// Writes the topic `path` with its `title`, in the encoding of `template_path`. Without that
/// file it is a page of the title alone; one that cannot be read yields an empty topic. A file
/// that exists is replaced. Raises as FileSystem::CreateFolder and FileSystem::WriteFile.
void WriteNewTopic(MainForm& main, std::string_view path, std::string_view title,
                   const std::string& template_path);

/// Copies what topics rely on from the templates to where they look for it, never over a file
/// there.
void CopyTopicSupport(MainForm& main, std::string_view topic_path);

}  // namespace quorrel
