// Plain English phrases for generated projects, the same for a seed on every machine.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_set>

namespace quorrel::bench {

class WordSource {
  public:
    explicit WordSource(std::uint64_t seed) : state_(seed) {}

    /// A number from 0 to `bound` - 1.
    int Below(int bound);

    /// "Configuring the shared printer".
    std::string Title();
    /// A key that was not given before, as "shared printer" or "printer, paper tray".
    std::string Keyword();
    /// "choosing", the key below another.
    std::string_view SubKey();
    /// "The shared printer keeps each report until the next backup."
    std::string Sentence();

  private:
    std::string_view Noun();
    std::string_view Adjective();
    std::string_view Verb();
    std::string KeywordCandidate();

    std::uint64_t state_;
    std::unordered_set<std::string> given_;
};

}  // namespace quorrel::bench
