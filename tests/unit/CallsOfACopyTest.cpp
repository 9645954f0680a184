#include <gtest/gtest.h>

#include <functional>
#include <utility>

#include "platform/ForwardingFileSystem.h"
#include "settings/SettingKeys.h"
#include "tests/support/CountingFileSystem.h"
#include "tests/support/EngineBench.h"

namespace ambrio {
namespace {

using Operations = std::vector<FileOperation>;
constexpr FileSeconds kCountedTime = 13'400'000'000;
const std::wstring kCountedFile = L"C:\\From\\file.txt";
const std::wstring kCountedCopy = L"C:\\To\\file.txt";

// What one file costs, in calls of the file system; over a network each is a wait.
class CallsOfACopyTest : public testing::Test {
  protected:
    CallsOfACopyTest() { Bench.AddSet(L"S", L"C:\\From", L"C:\\To"); }

    void Source(FileAttributes attributes, FileSeconds time = kCountedTime) {
        Bench.Files.WriteFile(kCountedFile, "new", attributes, time);
    }
    void Copy(FileAttributes attributes, FileSeconds time = kCountedTime) {
        Bench.Files.WriteFile(kCountedCopy, "old", attributes, time);
    }
    // The operations on the file and on its copy, in order.
    Operations Calls() {
        CountingFileSystem counting(Bench.Files);
        Bench.Run(counting, Bench.Settings);
        Operations calls;
        for (const FileCall& call : counting.Calls()) {
            if (call.Path == kCountedFile || call.Path == kCountedCopy) {
                calls.push_back(call.Operation);
            }
        }
        return calls;
    }

    EngineBench Bench;
};

TEST_F(CallsOfACopyTest, OfANewFileInANewFolderAskNothingOfTheFolder) {
    Source(0);
    EXPECT_EQ(Calls(), (Operations{FileOperation::GetFile, FileOperation::CopyFile}));
    EXPECT_EQ(Bench.Files.Content(kCountedCopy), "new");
}

TEST_F(CallsOfACopyTest, OfANewFileInAFolderThatWasThereLookOnceForACopy) {
    Source(0);
    Bench.Files.MakeFolder(L"C:\\To");
    EXPECT_EQ(Calls(), (Operations{FileOperation::GetFile, FileOperation::FindFile,
                                   FileOperation::CopyFile}));
}

TEST_F(CallsOfACopyTest, OfAReplacedFileLookAtItsCopyOnce) {
    Source(0, kCountedTime + 1);
    Copy(0);
    EXPECT_EQ(Calls(), (Operations{FileOperation::GetFile, FileOperation::FindFile,
                                   FileOperation::CopyFile}));
    EXPECT_EQ(Bench.Files.Content(kCountedCopy), "new");
}

TEST_F(CallsOfACopyTest, OfAReadOnlyCopyThatIsOverwrittenLookAtItOnceToo) {
    Bench.Set(L"S", kOverwriteReadOnlyKey, kYes);
    Source(0, kCountedTime + 1);
    Copy(kAttributeReadOnly);
    EXPECT_EQ(Calls(), (Operations{FileOperation::GetFile, FileOperation::FindFile,
                                   FileOperation::SetAttributes, FileOperation::CopyFile}));
}

TEST_F(CallsOfACopyTest, OfAnUnchangedFileReadItOnly) {
    Source(0);
    Copy(0);
    EXPECT_EQ(Calls(), Operations{FileOperation::GetFile});
}

TEST_F(CallsOfACopyTest, OfAFileWhoseCopyGoesLookForTheCopyOnceAndMakeSureThatItIsAnotherFile) {
    Bench.Set(L"S", kCopyTypeKey, kCopyTypeArchiveBit);
    Bench.Set(L"S", kDeleteCopyArchiveBitKey, kYes);
    Source(0);
    Copy(0);
    EXPECT_EQ(Calls(), (Operations{FileOperation::GetFile, FileOperation::FileExists,
                                   FileOperation::IdentityOf, FileOperation::IdentityOf,
                                   FileOperation::DeleteFile, FileOperation::GetFile}));
}

TEST_F(CallsOfACopyTest, AnUnchangedFileCostsOneReadOfTheSourceAndNothingAtTheDestination) {
    constexpr int kFiles = 20;
    for (int i = 0; i < kFiles; ++i) {
        const std::wstring name = L"\\file" + std::to_wstring(i);
        Bench.Files.WriteFile(L"C:\\From" + name, "x", 0, kCountedTime);
        Bench.Files.WriteFile(L"C:\\To" + name, "x", 0, kCountedTime);
    }
    CountingFileSystem counting(Bench.Files);
    Bench.Run(counting, Bench.Settings);
    EXPECT_EQ(Bench.State.FilesChecked, kFiles);
    EXPECT_EQ(counting.CallsBelow(L"C:\\From"), kFiles);
    EXPECT_EQ(counting.CallsOf(FileOperation::GetFile), kFiles);
    EXPECT_EQ(counting.CallsBelow(L"C:\\To"), 0);
    EXPECT_EQ(counting.CallsOf(FileOperation::GetFolder), 2);
}

// Notes what each copy is to overwrite; somebody else may make the copy first.
class OtherMakesTheCopy : public ForwardingFileSystem {
  public:
    explicit OtherMakesTheCopy(MemoryFileSystem& files)
        : ForwardingFileSystem(files), files_(files) {}

    void CopyFile(const std::wstring& source, const std::wstring& destination, bool overwrite,
                  const Yield& yield) override {
        if (Make) {
            std::exchange(Make, {})(files_);
        }
        Overwrites.push_back(overwrite);
        ForwardingFileSystem::CopyFile(source, destination, overwrite, yield);
    }

    std::function<void(MemoryFileSystem&)> Make;
    std::vector<bool> Overwrites;

  private:
    MemoryFileSystem& files_;
};

// A look for a copy that is not there costs as much as to copy a small file, in a large folder.
TEST_F(CallsOfACopyTest, OfANewFileDoNotAskForWhatItWouldOverwrite) {
    Source(0);
    OtherMakesTheCopy files(Bench.Files);
    Bench.Run(files, Bench.Settings);
    EXPECT_EQ(files.Overwrites, std::vector<bool>{false});
    Source(0, kCountedTime + 1);
    Bench.Run(files, Bench.Settings);
    EXPECT_EQ(files.Overwrites, (std::vector<bool>{false, true}));
}

TEST_F(CallsOfACopyTest, ACopyThatSomebodyMakesMeanwhileIsOverwrittenLikeAnyOther) {
    Source(0);
    OtherMakesTheCopy files(Bench.Files);
    files.Make = [](MemoryFileSystem& disk) { disk.WriteFile(kCountedCopy, "theirs"); };
    Bench.Run(files, Bench.Settings);
    EXPECT_EQ(files.Overwrites, (std::vector<bool>{false, true}));
    EXPECT_EQ(Bench.Files.Content(kCountedCopy), "new");
    EXPECT_EQ(Bench.State.CopyErrors, 0);
}

TEST_F(CallsOfACopyTest, AFolderThatStandsInTheWayRefusesTheCopyAsEver) {
    Source(0);
    OtherMakesTheCopy files(Bench.Files);
    files.Make = [](MemoryFileSystem& disk) { disk.MakeFolder(kCountedCopy); };
    Bench.Run(files, Bench.Settings);
    EXPECT_EQ(Bench.State.CopyErrors, 1);
    EXPECT_TRUE(Bench.HasLog({L"Error 70 - Permission denied while copying ",
                              L"      <" + kCountedFile + L">", L"   to <" + kCountedCopy + L">"}));
}

}  // namespace
}  // namespace ambrio
