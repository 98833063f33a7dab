#include "repair/backups.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "helpers/text_helpers.h"
#include "platform/file_system_object.h"
#include "platform/locale_texts.h"
#include "platform/unique_handle.h"
#include "registry/mdlRegistry.h"
#include "tests/support/window_pc.h"

namespace tidemark {
namespace {

// The registry editor is another process, so these work on the PC's own registry.
struct BackupPc : WindowPc {
  BackupPc() : WindowPc(TestPc::Registry::kLive) {}

  std::string File(const std::string& name) const {
    return pc.program_folder() + "\\backup\\" + name;
  }
  std::vector<std::string> Names() const { return Rows(window.LvBackup, {0}); }
  void List() { Loadbackup(window); }
  // A listed script that sets "v" of the test's own key to "old".
  void Plant(const std::string& name) {
    pc.MakeFile(File(name),
                "REGEDIT4\r\n\r\n[HKEY_CURRENT_USER\\" + pc.LiveKey() + "]\r\n\"v\"=\"old\"\r\n");
    List();
  }
  void Set(const char* name, const std::string& text) {
    pc.SetText(HKEY_CURRENT_USER, pc.LiveKey(), name, text);
  }
  std::string Get(const char* name) {
    return GetRegString(HKEY_CURRENT_USER, pc.LiveKey(), name, "none");
  }

  // The box as a person sees it: "caption|message|buttons".
  std::string Box() const {
    if (!window.mess_box) return "no box";
    const frmMessBox& box = *window.mess_box;
    std::string text = box.form.Caption().String() + '|' + box.lblMessage.Caption().String() + '|';
    for (const CommandButton* button : {&box.cmdYes, &box.cmdNo, &box.cmdOK}) {
      if (button->Visible() && button->Enabled()) text += button->Caption().String();
    }
    return text;
  }
  // Presses it with the first row selected, answers what it asks, and remembers the question.
  void Press(CommandButton& pressed, CommandButton frmMessBox::*answer) {
    window.LvBackup.UserSelect(*window.LvBackup.Item(1));
    question.clear();
    front_end.When([this] { return window.mess_box && window.mess_box->cmdYes.Visible(); },
                   [this, answer] {
                     question = Box();
                     ((*window.mess_box).*answer).Click();
                   });
    pressed.Click();
  }

  // An editor that has ended lets go of its file.
  void WaitForEditor(const std::string& file) {
    constexpr DWORD kStepMs = 50;
    for (int step = 0; step < 400; ++step) {
      Sleep(kStepMs);
      const UniqueFile alone(CreateFileA(file.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                                         FILE_ATTRIBUTE_NORMAL, nullptr));
      if (alone) return;
    }
  }

  std::string question;
};

const std::string kRestored =
    "Tidemark - Restore Complete!|The selected backup file has been restored!|&OK";

TEST(Backups, ListsTheScriptsOfItsFolderWithTheirDates) {
  BackupPc on;
  on.List();
  EXPECT_EQ(on.Names(), std::vector<std::string>{});
  for (const char* name : {"undo_060411_130509.reg", "b.REG", "a note.txt", "RegBackup_1.reg"}) {
    on.pc.MakeFile(on.File(name));
  }
  on.pc.MakeFolder(on.File("folder.reg"));
  on.List();
  EXPECT_EQ(on.Names(),
            (std::vector<std::string>{"b.REG", "RegBackup_1.reg", "undo_060411_130509.reg"}));
  const ListItem& row = *on.window.LvBackup.Item(2);
  FileSystemObject::File file;
  ASSERT_EQ(FileSystemObject().GetFile(on.File("RegBackup_1.reg"), file), FileSystemObject::kNone);
  EXPECT_EQ(row.SubItem(1), DateTimeText(file.DateLastModified().value()));
  EXPECT_EQ(row.SmallIcon(), 3);
  EXPECT_EQ(WindowPc::Rows(on.window.LvBackup, {2}),
            (std::vector<std::string>{"Registry file", "Backup: the whole registry",
                                      "Undo: what a repair has deleted"}));
  EXPECT_EQ(row.SubItem(3), SizeText(file.Size().value()));
}

TEST(Backups, ABackupIsMadeListedAndRemoved) {
  BackupPc on;
  on.Set("v", "kept");
  on.window.cmdBakupReg.Click();
  EXPECT_EQ(on.Box(),
            "Tidemark - Manual Backup Complete!|"
            "You have successfully created a backup of your registry\r\n"
            "This backup file can be used to 'Restore' your current \r\n"
            "registry settings at anytime|&OK");
  ASSERT_EQ(on.Names().size(), 1U);
  const std::string name = on.Names()[0];
  EXPECT_TRUE(name == "RegBackup_061104_130509.reg" || !on.pc.CanFault()) << name;
  on.WaitForEditor(on.File(name));
  EXPECT_GT(on.pc.ReadFile(on.File(name)).size(), 100U);
  on.window.mess_box->cmdOK.Click();

  on.Press(on.window.cmdRemove, &frmMessBox::cmdNo);
  EXPECT_EQ(on.question,
            "Tidemark - Delete Backup File?|"
            "Are you sure you would like to delete the backup file:\r\n" +
                name + "|&Yes&No");
  EXPECT_TRUE(on.pc.FileExists(on.File(name)));
  on.Press(on.window.cmdRemove, &frmMessBox::cmdYes);
  EXPECT_FALSE(on.pc.FileExists(on.File(name)));
  EXPECT_EQ(on.Names(), std::vector<std::string>{});
}

TEST(Backups, ARestoredFileIsImportedAndUsedUp) {
  BackupPc on;
  on.Plant("one.reg");
  on.Set("v", "new");
  on.pc.MakeFile(on.File("two.reg"));
  on.Press(on.window.cmdRestore, &frmMessBox::cmdNo);
  EXPECT_EQ(on.question,
            "Tidemark - Restore Backup File?|Are you sure you would like to restore your registry "
            "using the backup file:\r\none.reg|&Yes&No");
  EXPECT_EQ(on.Names(), std::vector<std::string>{"one.reg"}) << "no leaves the list as it stands";
  EXPECT_EQ(on.Box(), "no box");
  // The list may be filled anew, with nothing selected, while the question is up.
  on.front_end.When([&] { return on.window.mess_box != nullptr; }, [&] { on.List(); });
  on.Press(on.window.cmdRestore, &frmMessBox::cmdYes);
  EXPECT_EQ(on.Box(), kRestored);
  EXPECT_EQ(on.Names(), std::vector<std::string>{"two.reg"});
  Sleep(500);
  EXPECT_EQ(on.Get("v"), "old");
}

TEST(Backups, AnAnswerIsToTheQuestionThatIsSeen) {
  BackupPc on;
  on.Plant("a.reg");
  on.Plant("b.reg");
  on.Set("v", "new");
  // While the one question is up another row is removed, or a backup is made.
  bool is_question = false;
  on.front_end.When([&] { return on.window.mess_box != nullptr; },
                    [&] {
                      is_question = on.window.mess_box->form.IsQuestion();
                      on.window.LvBackup.UserSelect(*on.window.LvBackup.Item(2));
                      on.front_end.When([&] { return true; },
                                        [&] { on.window.mess_box->cmdYes.Click(); });
                      on.window.cmdRemove.Click();
                    });
  on.window.LvBackup.UserSelect(*on.window.LvBackup.Item(1));
  on.window.cmdRestore.Click();
  EXPECT_TRUE(is_question);
  EXPECT_EQ(on.Names(), std::vector<std::string>{"a.reg"});
  EXPECT_EQ(on.Box(), "no box") << "nothing was restored";

  on.front_end.When([&] { return on.window.mess_box != nullptr; },
                    [&] { on.window.cmdBakupReg.Click(); });
  on.window.LvBackup.UserSelect(*on.window.LvBackup.Item(1));
  on.window.cmdRemove.Click();
  EXPECT_FALSE(on.window.mess_box->form.IsQuestion());
  EXPECT_TRUE(on.pc.FileExists(on.File("a.reg")));
  Sleep(500);
  EXPECT_EQ(on.Get("v"), "new");
}

TEST(Backups, TheWholeRegistryIsWhatItWas) {
  BackupPc on;
  if (!on.pc.CanFault()) GTEST_SKIP() << "the real registry is not ours to write back";
  on.Set("changed", "before");
  on.Set("deleted", "before");
  on.window.cmdBakupReg.Click();
  Sleep(100);
  on.Set("changed", "after");
  SHDeleteKeyA(HKEY_CURRENT_USER, on.pc.LiveKey().c_str());
  on.Press(on.window.cmdRestore, &frmMessBox::cmdYes);
  Sleep(100);
  EXPECT_EQ(on.Get("changed") + " " + on.Get("deleted"), "before before");
  EXPECT_EQ(on.Names(), std::vector<std::string>{});
}

TEST(Backups, WhereThereIsNoFileNothingIsRestored) {
  BackupPc on;
  for (CommandButton* button : {&on.window.cmdRestore, &on.window.cmdRemove}) {
    button->Click();
    EXPECT_EQ(on.Box(), "no box") << "no row is selected";
    on.Plant("one.reg");
    DeleteFileA(on.File("one.reg").c_str());
    on.Press(*button, &frmMessBox::cmdYes);
    EXPECT_EQ(on.question.empty(), button == &on.window.cmdRestore) << "removed in vain";
    EXPECT_EQ(on.Box(), "no box");
    EXPECT_EQ(on.Names(), std::vector<std::string>{});
  }
}

TEST(Backups, AReadOnlyFileStaysInTheList) {
  BackupPc on;
  on.Plant("one.reg");
  SetFileAttributesA(on.File("one.reg").c_str(), FILE_ATTRIBUTE_READONLY);
  for (CommandButton* button : {&on.window.cmdRemove, &on.window.cmdRestore}) {
    on.Press(*button, &frmMessBox::cmdYes);
    EXPECT_EQ(on.Names(), std::vector<std::string>{"one.reg"});
  }
  Sleep(500);
  EXPECT_EQ(on.Get("v"), "old");
  EXPECT_EQ(on.Box(), kRestored);
}

TEST(Backups, AFolderThatIsGoneIsMadeAgain) {
  BackupPc on;
  on.window.application.folder = on.pc.folder() + "\\Elsewhere";
  on.pc.MakeFolder(on.window.application.folder);
  on.window.cmdBakupReg.Click();
  Sleep(100);
  EXPECT_NE(on.Box().find("successfully"), std::string::npos) << "success is told all the same";
  EXPECT_EQ(on.Names(), std::vector<std::string>{});
  on.pc.MakeFile(on.window.application.folder + "\\backup\\one.reg");
  for (const char* folder : {"\\Elsewhere", "\\Nowhere"}) {
    on.window.application.folder = on.pc.folder() + folder;
    on.List();
    EXPECT_EQ(on.Names(), std::vector<std::string>{"one.reg"})
        << "where it can't be made, the folder before stays";
  }
}

TEST(Backups, ASlowImportIsToldAsDoneAndMayLoseItsFile) {
  struct Case {
    unsigned duration_ms, start_up_ms;
    const char* later;
  };
  for (const Case& one : {Case{5000, 1, "old"}, {5000, 1900, "old"}, {2, 3000, "new"}}) {
    BackupPc on;
    if (!on.pc.CanFault()) GTEST_SKIP() << "the editor can't be told to be slow on this ground";
    on.Plant("one.reg");
    on.Set("v", "new");
    on.pc.SlowEditor(one.duration_ms, one.start_up_ms);
    on.Press(on.window.cmdRestore, &frmMessBox::cmdYes);
    EXPECT_EQ(on.Box(), kRestored);
    EXPECT_EQ(on.Names(), std::vector<std::string>{});
    EXPECT_EQ(on.Get("v"), "new") << "not yet";
    Sleep(10000);
    EXPECT_EQ(on.Get("v"), one.later) << one.start_up_ms;
  }
}

}  // namespace
}  // namespace tidemark
