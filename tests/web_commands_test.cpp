// The commands that lead to web pages, on a desktop of stand-ins.
#include "tests/test_window.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

using Calls = std::vector<std::string>;

TEST(ShellOpen, TellsTheShellsResultsApart) {
    const std::string call = "open help/layouts.htm '' /program 0";
    const std::string mark = " [OK] Browser Unavailable (!)";
    const auto trouble = [&](int code) {
        return "ask Problem running your web browser. You should check that your browser is "
               "correctly installed. (Error " +
               std::to_string(code) + ")" + mark;
    };
    const struct {
        int result;
        Calls calls;
    } rows[] = {
        {0, {call, trouble(0)}},
        {2, {call, trouble(2)}},
        {30, {call, trouble(30)}},
        {31, {call}},
        {32,
         {call, "ask Quillet1.0 could not find a file association for help/layouts.htm on your "
                "system. You should check that your browser is correctly installed and "
                "associated with this type of file." +
                    mark}},
        {33, {call}},
    };
    for (const auto& row : rows) {
        TestWindow form;
        form.desktop.shellResult = row.result;
        form.mnuLayouts_Click();
        EXPECT_EQ(form.desktop.calls, row.calls) << row.result;
    }
}

TEST(News, LoadsItsPageEachTimeItIsOpened) {
    TestWindow form;
    frmWeb& web = form.webWindow();
    web.startPage = "http://news";
    form.mnuSurfNews_Click();
    EXPECT_EQ(web.Caption(), "Quillet: Surf Hindi News");
    EXPECT_EQ(web.wBrowser.Left, 100);
    EXPECT_EQ(web.wBrowser.Top, 150);
    EXPECT_EQ(web.wBrowser.Width, 15168);
    EXPECT_EQ(web.wBrowser.Height, 10240);
    EXPECT_EQ(web.wBrowser.address, "http://news");
    web.wBrowser.Navigate2("http://elsewhere");
    form.mnuSurfNews_Click(); // still open
    EXPECT_EQ(web.wBrowser.address, "http://elsewhere");
    web.close();
    form.mnuSurfNews_Click();
    EXPECT_EQ(web.wBrowser.address, "http://news");
    EXPECT_EQ(form.desktop.forms.calls,
              (Calls{"show frmWeb", "show frmWeb", "hide frmWeb", "show frmWeb"}));
    EXPECT_EQ(form.desktop.calls,
              Calls(3, "ask News website is loading, please wait a while [OK] Quillet1.0"));
}

} // namespace
} // namespace quillet
