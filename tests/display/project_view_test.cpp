#include "display/project_view.h"

#include <gtest/gtest.h>

#include "platform/settings_file.h"

namespace {

const ProjectView kView{
    SplitMode::Calls,
    -3,
    {"clshire.customer [set]"},
    {{NodeKind::Root, "module"}, {"modmain"}, {NodeKind::Group, "modmain.public_sub[]"}, {"\xE4\xA0;= x"}}};

TEST(ProjectView, ComesBackFromItsText) {
    EXPECT_EQ(ProjectViewFrom(TextOf(kView)), kView);
    EXPECT_EQ(ProjectViewFrom(TextOf({})), ProjectView());
}

TEST(ProjectView, ForeignTextsAreIgnoredAndTornOnesLoseNodes) {
    for (const char* foreign :
         {"", "calls", "calls\t", "calls\tx\to", "Calls\t1\to", "calls\t1x", "chart\t0\t-", "\t0"})
        EXPECT_FALSE(ProjectViewFrom(foreign)) << foreign;
    const std::string whole = TextOf(kView);
    for (std::size_t length = whole.find("clshire"); length < whole.size(); ++length) {
        const auto torn = ProjectViewFrom(whole.substr(0, length));
        ASSERT_TRUE(torn) << length;
        EXPECT_EQ(torn->zoom, -3);
        EXPECT_LE(torn->open.size(), kView.open.size());
        for (std::size_t nr = 0; nr + 1 < torn->open.size(); ++nr)
            EXPECT_EQ(torn->open[nr], kView.open[nr]);
    }
    EXPECT_EQ(ProjectViewFrom("content\t0\tq\tx\t\too\tg"), (ProjectView{.open = {{"o"}}}));
}

TEST(ProjectView, IsKeptForTheProjectsUsedLast) {
    MemoryFiles files;
    SettingsFile settings(files, "o.ini");
    const auto path = [](std::size_t nr) { return "/p/" + std::to_string(nr) + " = x.vbp"; };
    for (std::size_t nr = 0; nr <= kProjectViews; ++nr)
        StoreView(settings, path(nr), {.zoom = static_cast<int>(nr)});
    StoreView(settings, path(1), kView);  // the oldest one that is left
    StoreView(settings, "/p/new.vbp", {});
    SettingsFile again(files, "o.ini");
    EXPECT_FALSE(StoredView(again, path(0)));
    EXPECT_EQ(StoredView(again, path(1)), kView);
    EXPECT_FALSE(StoredView(again, path(2)));
    EXPECT_EQ(StoredView(again, path(3))->zoom, 3);
    const std::size_t length = files.Bytes("o.ini").size();
    StoreView(again, path(1), kView);
    EXPECT_EQ(files.Bytes("o.ini").size(), length);

    // Many open nodes do not make the file grow without bounds.
    ProjectView large;
    large.open.assign(100000, NodeId("modmain.some_procedure"));
    StoreView(again, "/p/large.vbp", large);
    EXPECT_LT(files.Bytes("o.ini").size(), 200000U);
    EXPECT_GT(StoredView(again, "/p/large.vbp")->open.size(), 1000U);
}

}  // namespace
