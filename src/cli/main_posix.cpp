#include "cli/cli.hpp"

#include <iostream>

int main(int argc, char** argv) {
    std::ios::sync_with_stdio(false);
    return quorrel::RunCli(argc, argv, std::cin, std::cout, std::cerr, quorrel::AtEnd::kExit);
}
