#include "host/script_answers.h"

#include <gtest/gtest.h>

#include "base/report.h"

namespace vorn {
namespace {

Answer parse(const std::string& text) { return parseAnswerLine({"s.scr", 1, text}); }

TEST(ScriptLine, ClassifiesEachForm)
{
    EXPECT_EQ(parse("10,20").kind, Answer::Kind::Point);
    Answer withZ = parse("10, 20 ,5");
    EXPECT_EQ(withZ.kind, Answer::Kind::Point);
    EXPECT_TRUE(withZ.hasZ);
    EXPECT_DOUBLE_EQ(withZ.z, 5.0);
    EXPECT_EQ(parse("25.5").kind, Answer::Kind::Number);
    EXPECT_EQ(parse("-1e3").kind, Answer::Kind::Number);
    EXPECT_EQ(parse("Keep").kind, Answer::Kind::Text);
    EXPECT_EQ(parse("12abc").kind, Answer::Kind::Text);
    EXPECT_EQ(parse("<ENTER>").kind, Answer::Kind::Enter);
    EXPECT_EQ(parse("<esc>").kind, Answer::Kind::Esc);
    Answer pick = parse("pick 3,4");
    EXPECT_EQ(pick.kind, Answer::Kind::Pick);
    EXPECT_DOUBLE_EQ(pick.y, 4.0);
    EXPECT_EQ(parse("box yes").box, IDYES);
    EXPECT_EQ(parse("box Cancel").box, IDCANCEL);
    EXPECT_EQ(parse("box maybe").kind, Answer::Kind::Text);
    // Select, file and panel lines.
    Answer window = parse("select window 0,0 10,5");
    ASSERT_EQ(window.kind, Answer::Kind::Select);
    EXPECT_EQ(window.select.mode, SelectAnswer::Mode::Window);
    EXPECT_DOUBLE_EQ(window.select.x2, 10.0);
    EXPECT_EQ(parse("select layer A,B").select.layers, "A,B");
    EXPECT_EQ(parse("select all").select.mode, SelectAnswer::Mode::All);
    EXPECT_EQ(parse("select window 0,0").kind, Answer::Kind::Text);

    Answer file = parse("file \"/tmp/a b.grd\"");
    EXPECT_EQ(file.kind, Answer::Kind::File);
    EXPECT_EQ(file.path, "/tmp/a b.grd");
    EXPECT_TRUE(parse("file <esc>").fileCancelled);

    Answer set = parse("set \"Cell size X:\" 12.5");
    ASSERT_EQ(set.kind, Answer::Kind::Panel);
    EXPECT_EQ(set.panel.action, PanelAnswer::Action::Set);
    EXPECT_EQ(set.panel.caption, "Cell size X:");
    EXPECT_EQ(set.panel.value, "12.5");
    EXPECT_TRUE(parse("check \"Group\" on").panel.on);
    EXPECT_EQ(parse("check \"Group\" maybe").kind, Answer::Kind::Text);
    EXPECT_EQ(parse("press \"< Pick\"").panel.action, PanelAnswer::Action::Press);
    EXPECT_EQ(parse("tab \"Grid Dimension\"").panel.caption, "Grid Dimension");
    // "ok" drives a panel, and still stands as a word at a keyword prompt.
    Answer ok = parse("Ok");
    EXPECT_EQ(ok.panel.action, PanelAnswer::Action::Ok);
    EXPECT_TRUE(ok.isWordLike());
    EXPECT_FALSE(set.isWordLike());
}

TEST(ScriptSource, SkipsCommentsAndBlankLinesKeepingNumbers)
{
    auto source = ScriptSource::fromText("# first\n\n  10,20  \r\nKeep\n", "run.scr");
    std::optional<ScriptLine> line = source->nextLine();
    ASSERT_TRUE(line);
    EXPECT_EQ(line->number, 3);
    EXPECT_EQ(line->text, "10,20");
    EXPECT_EQ(source->nextLine()->number, 4);
    EXPECT_FALSE(source->nextLine());
}

TEST(Answers, WrongKindStopsTheRunNamingTheLineEscAlwaysStops)
{
    Answers answers(ScriptSource::fromText("box yes\n", "run.scr"));
    try {
        answers.next("a point at \"Pick:\"", [](const Answer& a) { return a.kind == Answer::Kind::Point; });
        FAIL() << "no error";
    } catch (const ScriptError& error) {
        std::string message = error.what();
        EXPECT_NE(message.find("run.scr line 1"), std::string::npos) << message;
        EXPECT_NE(message.find("a point at \"Pick:\""), std::string::npos) << message;
        EXPECT_NE(message.find("box yes"), std::string::npos) << message;
    }
    // <esc> after the end, and for panels.
    Answers ended(ScriptSource::fromText("ok\n<esc>\n"));
    EXPECT_EQ(ended.nextPanelAnswer("Define a Grid").action, PanelAnswer::Action::Ok);
    auto any = [](const Answer&) { return false; };
    EXPECT_EQ(ended.next("anything", any).kind, Answer::Kind::Esc);  // <esc> is always taken
    EXPECT_EQ(ended.next("anything", any).kind, Answer::Kind::Esc);
    EXPECT_EQ(ended.nextPanelAnswer("Define a Grid").action, PanelAnswer::Action::Cancel);
}

TEST(Answers, TerminalAsksAgainAfterAWrongAnswer)
{
    std::FILE* in = std::tmpfile();
    std::fputs("Keep\n\n5\n", in);
    std::rewind(in);
    Answers answers(std::make_unique<TerminalSource>(in));
    std::string complaint;
    answers.setComplain([&complaint](const std::string& message) { complaint = message; });
    Answer number = answers.next("a number", [](const Answer& a) { return a.kind == Answer::Kind::Number; });
    EXPECT_EQ(number.kind, Answer::Kind::Number);
    EXPECT_NE(complaint.find("terminal line 2"), std::string::npos) << complaint;  // blank line is <enter>
    std::fclose(in);
}

}  // namespace
}  // namespace vorn
