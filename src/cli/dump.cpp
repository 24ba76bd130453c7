#include "cli/dump.hpp"

#include "app/main_form.hpp"
#include "cli/json_stream.hpp"

namespace quorrel {
namespace {

void Field(JsonWriter& json, std::string_view key, std::string_view value) {
    WriteKey(json, key);
    WriteString(json, value);
}

void Table(JsonWriter& json, std::string_view key, const ListView& table, int sub_items) {
    WriteKey(json, key);
    json.StartArray();
    for (int i = 1; i <= table.Count(); ++i) {
        const ListRow& row = table.At(i);
        json.StartObject();
        Field(json, "Text", row.Text());
        WriteKey(json, "SubItems");
        json.StartArray();
        for (int column = 1; column <= sub_items; ++column) WriteString(json, row.SubItems(column));
        json.EndArray();
        json.EndObject();
    }
    json.EndArray();
}

void Node(JsonWriter& json, const TreeNode& node) {
    json.StartObject();
    Field(json, "Text", node.Text);
    WriteKey(json, "Image");
    json.Int(node.Image);
    WriteKey(json, "SelectedImage");
    json.Int(node.SelectedImage);
    Field(json, "Tag", node.Tag);
    WriteKey(json, "Children");
    json.StartArray();
    for (int row = 0; row < node.Children(); ++row) Node(json, *node.ChildAt(row));
    json.EndArray();
    json.EndObject();
}

void Tree(JsonWriter& json, std::string_view key, const TreeView& tree) {
    WriteKey(json, key);
    json.StartArray();
    for (const TreeNode* root : tree.Roots()) Node(json, *root);
    json.EndArray();
}

}  // namespace

void DumpProject(const MainForm& main, std::ostream& out) {
    const ProjectState& project = main.project;
    JsonSink sink(out);
    JsonWriter json(sink);
    json.StartObject();
    Field(json, "edition", main.settings.is_javahelp_edition ? "javahelp" : "html");
    WriteKey(json, "help_mode");
    json.Int(project.help_mode);
    Field(json, "proj", project.proj);
    Field(json, "proj_path", project.proj_path);
    Field(json, "hhcfile", project.hhcfile);
    Field(json, "hhkfile", project.hhkfile);
    Field(json, "java_map_file", project.java_map_file);
    Field(json, "doc_outline", main.outline.doc_outline);
    Field(json, "status_file", project.status_file);
    Field(json, "project_title", project.project_title);
    Field(json, "project_def_topic", project.project_def_topic);
    WriteKey(json, "next_integer");
    json.Int64(project.next_integer);
    WriteKey(json, "javahelp_do_fts");
    json.Bool(project.javahelp_do_fts);
    Field(json, "site_properties_toc", main.contents.site_properties_toc);
    Field(json, "site_properties_index", main.keywords.site_properties_index);
    Table(json, "ListTopics", main.topics.ListTopics, 7);
    Table(json, "ListAliases", main.topics.ListAliases, 1);
    Table(json, "ListKeywords", main.keywords.ListKeywords, 2);
    Tree(json, "Tree1", main.contents.Tree1);
    Tree(json, "TreeDoc", main.outline.TreeDoc);
    json.EndObject();
    sink.Put('\n');
}

}  // namespace quorrel
