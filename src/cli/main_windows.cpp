#include <fcntl.h>
#include <io.h>

#include <cstdio>
#include <iostream>
#include <string>
#include <vector>

#include "cli/cli.hpp"
#include "platform/windows_api.hpp"

int wmain(int argc, wchar_t** argv) {
    // What is printed is the same on every system, to the byte.
    _setmode(_fileno(stdin), _O_BINARY);
    _setmode(_fileno(stdout), _O_BINARY);
    std::ios::sync_with_stdio(false);
    std::vector<std::string> words;
    for (int i = 0; i < argc; ++i) words.push_back(quorrel::Narrow(argv[i]));
    std::vector<const char*> arguments;
    for (const std::string& word : words) arguments.push_back(word.c_str());
    return quorrel::RunCli(argc, arguments.data(), std::cin, std::cout, std::cerr,
                           quorrel::AtEnd::kExit);
}
