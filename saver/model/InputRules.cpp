#include "saver/model/InputRules.h"

namespace ambrio {
namespace {

bool Differs(float stored, float now) {
    return stored != 0 && stored != now;
}

}  // namespace

int MouseMoveRule::Move(float x, float y, bool isMotion) {
    const int requests = isMotion ? (Differs(x_, x) ? 1 : 0) + (Differs(y_, y) ? 1 : 0) : 0;
    x_ = x;
    y_ = y;
    return requests;
}

void MouseMoveRule::Forget() {
    x_ = 0;
    y_ = 0;
}

bool PointerMotion::MovesTo(int x, int y) {
    return std::exchange(last_, std::pair(x, y)) != std::pair(x, y);
}

bool StaysOrdinaryWindow(const std::wstring& commandLine) {
    return commandLine == L"/D" || commandLine == L"/d";
}

bool HidesPointer(const std::wstring& commandLine) {
    return commandLine != L"/D";
}

}  // namespace ambrio
