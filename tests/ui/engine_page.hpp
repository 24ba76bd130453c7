// A page of the web engine that takes texts and gives back what it makes of them.
#pragma once

#include <QString>
#include <QVariant>
#include <QWebEngineScript>

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "platform/native_file_system.hpp"

class QWebEnginePage;
class QWebEngineProfile;

namespace quorrel {
class TopicPage;
}

namespace quorrel::test {

/// Waits for events until `condition` holds; false if it takes a minute. (The engine works in
/// many small events, between which the toolkit's own waiting sleeps.)
[[nodiscard]] bool WaitFor(const std::function<bool()>& condition);

/// The value of a script, which runs apart from the page's own unless another world is named.
QVariant ValueOf(QWebEnginePage& page, const QString& script,
                 quint32 world = QWebEngineScript::ApplicationWorld);

class EnginePage {
  public:
    EnginePage();
    ~EnginePage();

    /// Loads the text as the topic with this Windows path. False if it does not come.
    [[nodiscard]] bool Load(std::string_view text, const std::string& path);
    /// The document as it is now.
    [[nodiscard]] std::string Serialised();
    /// What there is in the document, without white space and with the attributes in order, and
    /// its text as it is shown: equal for equal documents.
    [[nodiscard]] std::string Contents();
    /// The value of a script.
    [[nodiscard]] QVariant Run(const QString& script);

  private:
    NativeFileSystem files_;
    std::unique_ptr<QWebEngineProfile> profile_;
    std::unique_ptr<TopicPage> page_;
    std::string text_;
    int load_ = 0;
    bool is_loaded_ = false;
};

}  // namespace quorrel::test
