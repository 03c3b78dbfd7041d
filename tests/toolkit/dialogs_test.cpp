// Message boxes of the family, the exit button, and the file selector's
// answer through the headless face.
#include <gtest/gtest.h>

#include <filesystem>

#include "toolkit/dialogs/file_selector.h"
#include "toolkit/dialogs/message_box.h"
#include "toolkit/dialogs/winfodialog.h"
#include "toolkit/headless/headless.h"
#include "toolkit/messages/ios.h"

namespace {

TEST(MessageBoxes, TheFamilyShowsTitlesButtonsAndIcons) {
  headless::install();
  struct row {
    void (*show)();
    int buttons, icon;
    const char* title;
  };
  const row rows[] = {
      {[] { error_message("e"); }, 0, 3, "Error Message"},
      {[] { warning_message("w"); }, 0, 3, "Warning Message"},
      {[] { info_message("i"); }, 0, 4, "Information Message"},
      {[] { question_message("q", " "); }, 3, 2, ""},
      {[] { stop_message("s", "Stop title"); }, 3, 1, "Stop title"},
  };
  for (const row& r : rows) r.show();
  ASSERT_EQ(headless::boxes().size(), 5u);
  for (std::size_t i = 0; i < 5; ++i) {
    const headless::shown_box& b = headless::boxes()[i];
    EXPECT_EQ(b.buttons, rows[i].buttons) << rows[i].title;
    EXPECT_EQ(b.icon, rows[i].icon) << rows[i].title;
    EXPECT_EQ(b.default_button, 1) << rows[i].title;
    EXPECT_EQ(b.title, rows[i].title);
  }
  EXPECT_EQ(headless::box_texts(), (std::vector<std::string>{"e", "w", "i", "q", "s"}));
}

TEST(MessageBoxes, ExitButtonFollowsTheAnswer) {
  headless::install();
  headless::answer_box(2);
  headless::answer_box(1);
  question_message("Do you want to save the last modifications?");
  EXPECT_EQ(winfodialog(4), 2);
  question_message("Do you want to save the present settings?");
  EXPECT_EQ(winfodialog(4), 1);
  question_message("no answer queued: the default button");
  EXPECT_EQ(winfodialog(4), 1);
  question_message(std::string(100, 'x'), std::string(90, 'T'));
  EXPECT_EQ(headless::boxes().back().title.size(), 80u);
}

TEST(FileSelector, CancelKeepsTheNameAndOkMovesToTheFilesDirectory) {
  namespace fs = std::filesystem;
  const fs::path dir = fs::temp_directory_path() / "quelmora_selector_test";
  fs::create_directories(dir);
  std::string start_dir;
  iosdirname(start_dir);

  headless::install();
  headless::answer_file_cancel();
  headless::answer_file((dir / "nacl.bin").string());
  std::string name = "/data/";
  wselectfile2("Fourier Input File|*.inp;*.bin;*.asc;*.map|   ", 10, name, "Load Input File");
  EXPECT_EQ(winfodialog(4), 2);
  EXPECT_EQ(name, "/data/");
  wselectfile2("Fourier Input File|*.inp;*.bin;*.asc;*.map|", 10, name, "Load Input File");
  EXPECT_EQ(winfodialog(4), 1);
  EXPECT_EQ(name, (dir / "nacl.bin").string());
  std::string now;
  iosdirname(now);
  EXPECT_EQ(fs::path(now), fs::canonical(dir));
  wselectfile2(std::string(1200, 'f'), 10, name, "t");  // nothing queued: cancel
  EXPECT_EQ(winfodialog(4), 2);

  ASSERT_EQ(headless::selectors().size(), 3u);
  EXPECT_EQ(headless::selectors()[0].filter, "Fourier Input File|*.inp;*.bin;*.asc;*.map|");
  EXPECT_EQ(headless::selectors()[0].flags, 10);
  EXPECT_EQ(headless::selectors()[0].start_name, "/data/");
  EXPECT_EQ(headless::selectors()[0].title, "Load Input File");
  EXPECT_EQ(headless::selectors()[2].filter.size(), 1000u);
  iosdirchange(start_dir);
}

}  // namespace
