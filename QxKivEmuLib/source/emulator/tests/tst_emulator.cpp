#include "CAnswers.h"
#include "CTestModel.h"
#include "QxKivEmuLib.h"
#include "StalledDisk.h"

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <thread>
#include <unistd.h>

namespace {

constexpr uint32_t Chip = 0x110;
constexpr argb8888 Black = 0xFF000000;
constexpr argb8888 Red = 0xFFFF0000;
constexpr char RedBox[] = "color('#ff0000') fill_rect(x_coordinate, y_coordinate, width, height)";

class Emulator : public testing::Test
{
protected:
    Emulator()
    {
        CAnswers::instance().clear();
        CAnswers::instance().registerCallbacks();
        Emu_ConfigScreen(64, 48);
    }
    ~Emulator() override { Emu_Stop(); }

    std::string script(const std::string &text)
    {
        const std::string path = testing::TempDir() + "kiv_emulator_test.lua";
        std::ofstream(path) << text;
        return path;
    }
    std::string plainScript()
    {
        return script("function render(screen, items)\n"
                      "  clear(screen.color)\n"
                      "  for _, item in ipairs(items) do draw_item(item) end\n"
                      "end\n");
    }
    void render(CTestModel &model, void *observer = nullptr, uint32_t background = 0)
    {
        CTestIterator iterator(model);
        ASSERT_EQ(Emu_RenderObjects(&iterator, observer, background), 1);
    }
    /// Returns when the worker, the `count`th one, is stuck.
    void renderStalled(int count)
    {
        const std::string picture = testing::TempDir() + "stalled.png";
        std::ofstream(picture) << "no picture";
        CTestModel model;
        model.add("load_image('" + picture + "')");
        ASSERT_EQ(Emu_Start(plainScript().c_str(), Chip), 1);
        render(model);
        while (stalleddisk::begun() < count)
            std::this_thread::yield();
    }
    CAnswers &answers() { return CAnswers::instance(); }
};

} // namespace

TEST_F(Emulator, answersWithDisplayListFirstAndFrameLast)
{
    CTestModel model;
    model.add(RedBox);
    ASSERT_EQ(Emu_Start(plainScript().c_str(), Chip), 1);
    int observer = 0;
    render(model, &observer, 1);
    const SAnswer answer = answers().wait(1).at(0);
    EXPECT_EQ(answer.order, "DF");
    EXPECT_EQ(answer.errors, "");
    EXPECT_EQ(answer.observer, &observer);
    EXPECT_FALSE(answer.output);
    EXPECT_EQ(answer.flags & 1U, 1U);
    EXPECT_EQ(answer.width, 64U);
    EXPECT_EQ(answer.height, 48U);
    EXPECT_EQ(answer.pixel(0, 0), 0xFF102030U);
    EXPECT_EQ(answer.pixel(10, 20), Red);
    EXPECT_EQ(answer.pixel(29, 29), Red);
    EXPECT_EQ(answer.pixel(30, 29), 0xFF102030U);
    EXPECT_EQ(answer.list.size(), answer.ramDlUsage);
    EXPECT_EQ(answer.text,
              "CLEAR(0x102030);ITEM(1);COLOR(0xff0000);FILL_RECT(160, 320, 320, 160, 0);END();");
}

TEST_F(Emulator, failuresAreAnsweredToo)
{
    CTestModel model;
    model.add(RedBox);
    render(model);
    EXPECT_NE(answers().wait(1).back().errors.find("not started"), std::string::npos);

    EXPECT_EQ(Emu_Start("/no/such/file.lua", Chip), 0);
    render(model);
    EXPECT_NE(answers().wait(2).back().errors.find("/no/such/file.lua"), std::string::npos);

    EXPECT_EQ(Emu_Start(script("function render(").c_str(), Chip), 0);
    render(model);
    EXPECT_NE(answers().wait(3).back().errors.find("kiv_emulator_test.lua:1:"), std::string::npos);

    EXPECT_EQ(Emu_Start(script("x = 1").c_str(), Chip), 0);
    render(model);
    EXPECT_NE(answers().wait(4).back().errors.find("'render'"), std::string::npos);

    EXPECT_EQ(Emu_Start(plainScript().c_str(), Chip), 1);
    EXPECT_EQ(Emu_RenderObjects(nullptr, nullptr, 0), 1);
    EXPECT_NE(answers().wait(5).back().errors.find("no screen"), std::string::npos);

    for (const SAnswer &answer : answers().wait(5)) {
        EXPECT_EQ(answer.order, "DF");
        EXPECT_EQ(answer.width * answer.height, 64U * 48U);
        EXPECT_EQ(answer.pixel(10, 20), Black) << answer.errors;
    }
}

TEST_F(Emulator, screenLargerThanTheChipsIsCutAndReported)
{
    CTestModel model;
    ASSERT_EQ(Emu_Start(plainScript().c_str(), 0x100), 1);
    Emu_ConfigScreen(800, 480);
    render(model);
    const SAnswer large = answers().wait(1).at(0);
    EXPECT_EQ(large.width, 512U);
    EXPECT_EQ(large.height, 480U);
    EXPECT_NE(large.errors.find("800 x 480"), std::string::npos);
    EXPECT_NE(large.errors.find("512 x 512"), std::string::npos);
    Emu_ConfigScreen(0, 0);
    render(model);
    const SAnswer none = answers().wait(2).at(1);
    EXPECT_EQ(none.order, "DF");
    EXPECT_EQ(none.width, 0U);
}

TEST_F(Emulator, callbackMayRender)
{
    static CTestModel model;
    static int left = 0;
    left = 5;
    ASSERT_EQ(Emu_Start(plainScript().c_str(), Chip), 1);
    answers().setFrameHook([] {
        if (left-- > 0) {
            CTestIterator iterator(model);
            Emu_RenderObjects(&iterator, nullptr, 0);
        }
    });
    render(model);
    EXPECT_EQ(answers().wait(6).size(), 6U);
    EXPECT_EQ(answers().concurrent(), 1) << "callbacks overlapped";
}

TEST_F(Emulator, stopFromACallbackIsRefusedAndDoesNotHang)
{
    CTestModel model;
    static int stopped = -1;
    static int started = -1;
    ASSERT_EQ(Emu_Start(plainScript().c_str(), Chip), 1);
    answers().setFrameHook([] {
        stopped = Emu_Stop();
        started = Emu_Start("/no/such/file.lua", Chip);
    });
    render(model);
    EXPECT_EQ(answers().wait(1).back().errors, "");
    answers().setFrameHook(nullptr);
    Emu_Stop(); // the hook has returned then
    EXPECT_EQ(stopped, 0);
    EXPECT_EQ(started, 0);
}

TEST_F(Emulator, nothingCallsBackAfterStop)
{
    CTestModel model;
    for (int i = 0; i < 40; ++i)
        model.add(RedBox);
    for (int round = 0; round < 50; ++round) {
        ASSERT_EQ(Emu_Start(plainScript().c_str(), Chip), 1);
        Emu_ConfigScreen(static_cast<uint32_t>(32 + round), 48);
        const size_t before = answers().count();
        for (int i = 0; i <= round % 4; ++i)
            render(model);
        if (round % 3 == 0)
            answers().wait(before + 1);
        ASSERT_EQ(Emu_Stop(), 1);
        const size_t answered = answers().count();
        CTestModel().screen().set("name", "time for a late callback");
        EXPECT_EQ(answers().count(), answered);
    }
    for (const SAnswer &answer : answers().wait(0))
        EXPECT_EQ(answer.order, "DF");
}

TEST_F(Emulator, theModelMayChangeAsSoonAsTheCallReturns)
{
    auto model = std::make_unique<CTestModel>();
    model->add(RedBox);
    ASSERT_EQ(Emu_Start(plainScript().c_str(), Chip), 1);
    for (int i = 0; i < 20; ++i) {
        render(*model);
        auto other = std::make_unique<CTestModel>();
        other->add(RedBox).set("x_coordinate", i % 2 == 0 ? 40 : 10);
        model = std::move(other); // frees all that the request has read
    }
    const std::vector<SAnswer> all = answers().wait(20);
    for (size_t i = 1; i < all.size(); ++i) {
        EXPECT_EQ(all[i].errors, "");
        const bool isMoved = i % 2 == 1;
        EXPECT_EQ(all[i].pixel(45, 25), isMoved ? Red : 0xFF102030U) << i;
    }
}

// However many of them are worked on at once.
TEST_F(Emulator, sameModelGivesTheSameBytesInAnyOrder)
{
    CTestModel models[3];
    models[0].add(RedBox);
    models[0].add("text(5, 30, 27, 'Same') disc(40, 20, 7.3)");
    models[1].add("rotate(30, 20, 20) gradient(10, 10, 20, 20, 0xff, 0xff00)");
    models[2].add("for i = 1, 20000 do local a = i * 2 end disc(9, 9, 5)"); // others overtake it
    ASSERT_EQ(Emu_Start(plainScript().c_str(), Chip), 1);
    for (size_t i = 0; i < 3; ++i) {
        render(models[i]);
        answers().wait(i + 1);
    }
    char observers[90];
    for (int i = 0; i < 90; ++i)
        render(models[i * i % 7 % 3], &observers[i]);
    const std::vector<SAnswer> all = answers().wait(93);
    for (int i = 0; i < 90; ++i) {
        const SAnswer &answer = all[static_cast<size_t>(i + 3)];
        const SAnswer &expected = all[static_cast<size_t>(i * i % 7 % 3)];
        EXPECT_EQ(answer.observer, &observers[i]);
        EXPECT_EQ(answer.errors, "");
        EXPECT_EQ(answer.list, expected.list) << i;
        EXPECT_EQ(answer.pixels, expected.pixels) << i;
    }
    EXPECT_NE(all[0].list, all[1].list);
    EXPECT_EQ(answers().concurrent(), 1) << "callbacks overlapped";
}

TEST_F(Emulator, workersThatHangAreLeftBehind)
{
    CTestModel plain;
    plain.add(RedBox);
    for (int i = 1; i <= 2; ++i) {
        renderStalled(i);
        render(plain); // behind it in the queue
        EXPECT_EQ(Emu_Stop(), 0);
    }
    EXPECT_EQ(answers().count(), 0U);
    ASSERT_EQ(Emu_Start(plainScript().c_str(), Chip), 1);
    render(plain);
    EXPECT_EQ(answers().wait(1)[0].pixel(10, 20), Red);
    stalleddisk::release();
    for (size_t i = 2; i < 50; ++i) {
        render(plain);
        EXPECT_EQ(answers().wait(i).back().pixel(10, 20), Red);
    }
    EXPECT_EQ(Emu_Stop(), 1);
    EXPECT_EQ(answers().count(), 49U);
}

// A process may end at any moment: while a frame is drawn or a disk hangs, and in a callback.
TEST_F(Emulator, processEndsCleanlyWhileTheWorkerIsBusy)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    const std::string path = plainScript();
    const auto endWhileBusy = [&] {
        CTestModel model;
        model.add("while true do end");
        Emu_Start(path.c_str(), Chip);
        for (int i = 0; i < 20; ++i)
            render(model);
        std::exit(7);
    };
    const auto endInCallback = [&] {
        CTestModel model;
        Emu_Start(path.c_str(), Chip);
        CAnswers::instance().setFrameHook([] { std::exit(8); });
        render(model);
        for (;;)
            pause(); // the callback ends the process
    };
    const auto endWhileStalled = [&] {
        renderStalled(1);
        std::exit(9);
    };
    EXPECT_EXIT(endWhileBusy(), testing::ExitedWithCode(7), "");
    EXPECT_EXIT(endWhileStalled(), testing::ExitedWithCode(9), "");
    EXPECT_EXIT(endInCallback(), testing::ExitedWithCode(8), "");
}
