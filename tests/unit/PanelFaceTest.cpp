#include "saver/model/PanelFace.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace ambrio {
namespace {

std::wstring FaceOf(const std::set<std::wstring>& system) {
    return PanelFace([&](const wchar_t* name) { return system.count(name) != 0; });
}

TEST(PanelFace, IsThatOfTheSystemsDialogsOrElseOneAsNarrow) {
    EXPECT_EQ(FaceOf({L"Arial", L"Segoe UI", L"Tahoma"}), L"Segoe UI");
    EXPECT_EQ(FaceOf({L"Arial", L"DejaVu Sans Condensed", L"Tahoma"}), L"Tahoma");
    EXPECT_EQ(FaceOf({L"Arial", L"DejaVu Sans Condensed", L"Courier"}), L"DejaVu Sans Condensed");
    EXPECT_EQ(FaceOf({L"Arial", L"Courier"}), L"Arial");
    EXPECT_EQ(FaceOf({L"Courier"}), L"Segoe UI");
}

}  // namespace
}  // namespace ambrio
