// The commands that lead to web pages, on a desktop of stand-ins.
#include "tests/test_window.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

TEST(ShellOpen, TellsTheShellsResultsApart) {
    const std::string mark = " [OK] Browser Unavailable (!)|";
    const std::string trouble = "ask Problem running your web browser. You should check that your "
                                "browser is correctly installed. (Error ";
    const std::pair<int, std::string> rows[] = {
        {0, trouble + "0)" + mark},
        {30, trouble + "30)" + mark},
        {31, ""},
        {32, "ask Quillet1.0 could not find a file association for help/layouts.htm on your "
             "system. You should check that your browser is correctly installed and associated "
             "with this type of file." +
                 mark},
        {33, ""}};
    for (const auto& [result, message] : rows) {
        TestWindow form;
        form.desktop.shellResult = result;
        form.mnuLayouts_Click();
        EXPECT_EQ(joined(form.desktop.calls), "open help/layouts.htm '' /program 0|" + message);
    }
}

TEST(News, LoadsItsPageEachTimeItIsOpened) {
    TestWindow form;
    frmWeb& web = form.webWindow();
    web.startPage = "http://news";
    form.mnuSurfNews_Click();
    EXPECT_EQ(web.wBrowser.address, "http://news");
    web.wBrowser.Navigate2("http://elsewhere");
    form.mnuSurfNews_Click(); // still open
    EXPECT_EQ(web.wBrowser.address, "http://elsewhere");
    web.close();
    form.mnuSurfNews_Click();
    EXPECT_EQ(web.wBrowser.address, "http://news");
    EXPECT_EQ(joined(form.desktop.forms.calls), "show frmWeb|show frmWeb|hide frmWeb|show frmWeb|");
}

} // namespace
} // namespace quillet
