#include "support/recording_services.hpp"

#include "app/startup.hpp"
#include "project/open_project.hpp"

namespace quorrel::test {

RecordingFixture::RecordingFixture() {
    files.flush_to_disk = false;
    surface.code_page = [this] { return main.texts.CodePageNumber(); };
    LoadSettings(main, "html");
    calls.clear();
}

void RecordingFixture::OpenGuide() {
    folder.Write("p/guide.hhp",
                 "[OPTIONS]\r\nTitle=Guide\r\n\r\n[FILES]\r\na.htm\r\n;Title=Ay\r\nb.htm\r\n"
                 ";Title=Bee\r\n");
    folder.Write("p/a.htm", "<title>Ay</title><body>text a</body>\r\n");
    folder.Write("p/b.htm", "<title>Bee</title><body>text b</body>\r\n");
    folder.Write("p/guide.hhc",
                 "<UL>\r\n<LI><OBJECT type=\"text/sitemap\">\r\n<param name=\"Name\" "
                 "value=\"A\">\r\n<param name=\"Local\" value=\"a.htm\">\r\n</OBJECT>\r\n"
                 "</UL>\r\n");
    main.project.recent_proj = folder.Windows("p/guide.hhp");
    OpenProject_Click(main);
    calls.clear();
}

}  // namespace quorrel::test
