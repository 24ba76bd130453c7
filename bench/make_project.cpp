// make-project FOLDER TOPICS [--seed N]: writes a generated project and prints its path.
#include <charconv>
#include <cstdint>
#include <exception>
#include <iostream>
#include <optional>
#include <string_view>

#include "project_generator.hpp"

namespace {

constexpr int kUsage = 2;
constexpr std::uint64_t kLargestProject = 10'000'000;

std::optional<std::uint64_t> Number(std::string_view text) {
    std::uint64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
    return number;
}

int Usage() {
    std::cerr << "usage: make-project FOLDER TOPICS [--seed N]\n";
    return kUsage;
}

}  // namespace

int main(int argc, char** argv) {
    const bool with_seed = argc == 5 && std::string_view(argv[3]) == "--seed";
    if (argc != 3 && !with_seed) return Usage();
    const auto topics = Number(argv[2]);
    const auto seed = with_seed ? Number(argv[4]) : 1;
    if (!topics || *topics == 0 || *topics > kLargestProject || !seed) return Usage();
    try {
        const auto project =
            quorrel::bench::WriteProject(argv[1], static_cast<int>(*topics), *seed);
        std::cout << project.string() << '\n';
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "make-project: " << error.what() << '\n';
        return 1;
    }
}
