// The message library: loaded, missing, broken, and the start of the module that depends on it.
#include "platform/message_library.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "importer/odbc_workbook_import.h"
#include "platform/platform.h"
#include "tests/support/temporary.h"

namespace {

using testing::HasSubstr;

TEST(MessageLibrary, HasTheTextsOfTheFetchLayer) {
  std::string why;
  const auto library = platform::LoadResourceDLL(WB_BUILD_DIR "/lib", "msgtext.dll", why);
  ASSERT_NE(library, nullptr) << why;
  // An integer and two texts, in this order.
  const std::u16string text = library->GetText(30003);
  EXPECT_LT(text.find(u"%d"), text.find(u"%s"));
  EXPECT_LT(text.find(u"%s"), text.rfind(u"%s"));
  EXPECT_NE(library->GetText(30004), u"");
  EXPECT_EQ(library->GetText(30005), u"");
}

TEST(Start, IsRefusedWithoutTheLibraryAndSaysWhichFileIsMissing) {
  const wbtest::TemporaryFolder folder;
  std::string why;
  ASSERT_TRUE(OdbcImportStart(WB_BUILD_DIR "/lib", why)) << why;
  ASSERT_TRUE(OdbcImportStart(WB_BUILD_DIR "/lib", why)) << "started twice: " << why;
  OdbcImportStop();
  EXPECT_EQ(platform::GetServices().messages, nullptr);

  EXPECT_FALSE(OdbcImportStart(folder.path().c_str(), why));
  EXPECT_THAT(why, HasSubstr("msgtext.dll"));
  EXPECT_THAT(why, HasSubstr(folder.path()));
  EXPECT_THAT(why, HasSubstr("no such file"));

  folder.Write("msgtext.dll", "no library");
  EXPECT_FALSE(OdbcImportStart(folder.path().c_str(), why));
  EXPECT_THAT(why, HasSubstr(folder.path() + "/msgtext.dll"));

  // A library of another kind under that name.
  std::filesystem::copy_file(WB_BUILD_DIR "/lib/libworkbook.so", folder.path() + "/msgtext.dll",
                             std::filesystem::copy_options::overwrite_existing);
  EXPECT_FALSE(OdbcImportStart(folder.path().c_str(), why));
  EXPECT_THAT(why, HasSubstr("GetMessageText"));
  EXPECT_EQ(platform::GetServices().messages, nullptr);
}

}  // namespace
