// The contents of JavaHelp read, written and read again.
#include "formats/javahelp/toc_xml.hpp"

#include "fuzz_support.hpp"
#include "javahelp_tables.hpp"

using namespace quorrel;

static std::string ReadAndWrite(const std::string& text) {
    const fuzz::QuietTrap trap;
    TopicTables tables;
    fuzz::FillJavaHelpTables(tables);
    TreeView tree;
    ReadTocXml(text, tables, tree, trap);
    return WriteTocXml(tree);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::CheckSettles(fuzz::Input(data, size).RestAsText(), ReadAndWrite);
    return 0;
}
