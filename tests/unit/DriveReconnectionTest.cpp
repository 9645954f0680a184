#include "platform/DriveReconnection.h"

#include <gtest/gtest.h>

#include <map>
#include <vector>

namespace ambrio {
namespace {

class DrivesInMemory : public RememberedDrives {
  public:
    std::wstring LostShare(wchar_t letter) override {
        Asked += letter;
        return Lost.contains(letter) ? Lost.at(letter) : std::wstring();
    }
    void Connect(wchar_t letter, const std::wstring& share, const Yield& yield) override {
        Connected.push_back(letter + (L" " + share));
        yield();
    }

    std::map<wchar_t, std::wstring> Lost;
    std::wstring Asked;
    std::vector<std::wstring> Connected;
};

class DriveReconnectionTest : public testing::Test {
  protected:
    void Reconnect(const std::wstring& path) {
        reconnection_.Reconnect(path, [this] { ++yields_; });
    }

    DrivesInMemory drives_;
    DriveReconnection reconnection_{drives_};
    int yields_ = 0;
};

TEST_F(DriveReconnectionTest, ConnectsTheDriveOfAPathOnce) {
    drives_.Lost = {{L'Q', L"\\\\server\\share"}, {L'R', L"\\\\other\\share"}};
    Reconnect(L"Q:\\Data");
    EXPECT_EQ((std::vector<std::wstring>{L"Q \\\\server\\share"}), drives_.Connected);
    Reconnect(L"q:\\Other");
    Reconnect(L"Q:");
    EXPECT_EQ(L"Q", drives_.Asked);
    Reconnect(L"r:Data");
    EXPECT_EQ((std::vector<std::wstring>{L"Q \\\\server\\share", L"R \\\\other\\share"}),
              drives_.Connected);
    EXPECT_EQ(2, yields_);
}

TEST_F(DriveReconnectionTest, LeavesOtherDrivesAndPathsAlone) {
    drives_.Lost = {{L'Q', L"\\\\server\\share"}};
    for (const wchar_t* path : {L"C:\\Data", L"\\\\server\\share\\Q:", L"", L"Q", L"1:\\x"}) {
        Reconnect(path);
    }
    EXPECT_EQ(L"C", drives_.Asked);
    EXPECT_TRUE(drives_.Connected.empty());
}

}  // namespace
}  // namespace ambrio
