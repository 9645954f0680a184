#include "app/preview/PreviewPicture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <ostream>
#include <vector>

namespace ambrio {
namespace {

// A message as a window procedure gets it.
struct SentMessage {
    UINT Message;
    WPARAM WParam;
    LPARAM LParam;

    friend bool operator==(const SentMessage&, const SentMessage&) = default;
    friend void PrintTo(const SentMessage& sent, std::ostream* out) {
        *out << sent.Message << '(' << sent.WParam << ", " << sent.LParam << ')';
    }
};

constexpr LRESULT kAnswer = 4711;

// The procedure that the picture has before it is replaced: it writes down what it gets.
std::vector<SentMessage> passedOn;

LRESULT CALLBACK SavedProcedure(HWND, UINT message, WPARAM wParam, LPARAM lParam) {
    passedOn.push_back({message, wParam, lParam});
    return kAnswer + message;
}

// A picture in a hidden form, as it is before its procedure is replaced.
class PreviewPictureTest : public testing::Test {
  protected:
    PreviewPictureTest()
        : form_(CreateWindowExW(0, L"STATIC", L"form", WS_POPUP, 0, 0, 152, 112, nullptr, nullptr,
                                nullptr, nullptr)),
          preview_(CreateWindowExW(0, L"STATIC", L"preview", WS_POPUP, 0, 0, 152, 112, nullptr,
                                   nullptr, nullptr, nullptr)),
          picture_(std::make_unique<PreviewPicture>(form_, application_)) {
        passedOn.clear();
    }
    ~PreviewPictureTest() override {
        if (own_ != nullptr) {
            SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(own_));
        }
        picture_.reset();
        DestroyWindow(preview_);
        DestroyWindow(form_);
    }

    // Puts SavedProcedure in the place of the picture's own one, and replaces that.
    void ReplaceTheSavedProcedure() {
        window_ = picture_->Handle();
        own_ = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&SavedProcedure)));
        picture_->ReplaceProcedure();
    }

    Application application_;
    HWND form_;
    HWND preview_;
    std::unique_ptr<PreviewPicture> picture_;
    HWND window_ = nullptr;
    WNDPROC own_ = nullptr;
};

TEST_F(PreviewPictureTest, PassesEveryMessageOnUnchangedAndTheAnswerBack) {
    ReplaceTheSavedProcedure();
    for (const SentMessage& sent :
         {SentMessage{WM_ERASEBKGND, 11, 12}, SentMessage{WM_PAINT, 13, 14},
          SentMessage{WM_TIMER, 15, 16}, SentMessage{WM_LBUTTONDOWN, 17, 18},
          SentMessage{WM_APP + 1, 19, -20}, SentMessage{0xC123, 21, 22}}) {
        EXPECT_EQ(kAnswer + static_cast<LRESULT>(sent.Message),
                  SendMessageW(window_, sent.Message, sent.WParam, sent.LParam));
        EXPECT_EQ(std::vector{sent}, passedOn);
        passedOn.clear();
    }
}

TEST_F(PreviewPictureTest, KeepsTheRequestToCloseAndGoesBackToItsForm) {
    picture_->ReplaceProcedure();
    picture_->Activate(preview_);
    EXPECT_EQ(preview_, GetAncestor(picture_->Handle(), GA_PARENT));
    EXPECT_TRUE(picture_->IsPreviewActive());
    EXPECT_EQ(0, SendMessageW(picture_->Handle(), WM_CLOSE, 0, 0));
    EXPECT_EQ(form_, GetAncestor(picture_->Handle(), GA_PARENT));
    EXPECT_FALSE(picture_->IsPreviewActive());
    ReplaceTheSavedProcedure();
    EXPECT_EQ(0, SendMessageW(window_, WM_CLOSE, 0, 0));
    EXPECT_EQ(0, std::count_if(passedOn.begin(), passedOn.end(),
                               [](const SentMessage& sent) { return sent.Message == WM_CLOSE; }));
}

TEST_F(PreviewPictureTest, AnswersNothingButZeroOnceItsSavedProcedureIsTaken) {
    ReplaceTheSavedProcedure();
    EXPECT_EQ(&SavedProcedure, picture_->TakeSavedProcedure());
    EXPECT_EQ(nullptr, picture_->TakeSavedProcedure());
    EXPECT_EQ(0, SendMessageW(window_, WM_GETDLGCODE, 0, 0));
    EXPECT_EQ(0, SendMessageW(window_, WM_CLOSE, 0, 0));
    EXPECT_TRUE(passedOn.empty());
}

// The picture's own procedure answers so; the system's would not.
TEST_F(PreviewPictureTest, StillLeavesItsBackgroundToItsLinesWhenItsProcedureIsReplaced) {
    picture_->ReplaceProcedure();
    EXPECT_EQ(1, SendMessageW(picture_->Handle(), WM_ERASEBKGND, 0, 0));
}

}  // namespace
}  // namespace ambrio
