#pragma once

#include <functional>
#include <optional>

#include "platform/RuntimeError.h"
#include "tests/support/ObservedFileSystem.h"

namespace ambrio {

// Which operation is to fail, and how.
struct FileFault {
    int At = 1;  // the how-manyth of the operations that match, from 1
    ErrorNumber Number = ErrorNumber::PermissionDenied;
    std::optional<FileOperation> Kind = {};             // only operations of this kind match
    std::function<bool(const FileCall&)> Matches = {};  // and only those that it says yes to
    bool AndAllAfter = false;                           // the later ones that match fail too
    bool QuestionsThrow = false;  // FileExists and its like throw, instead of answering no
};

// Fails an operation without passing it on: it throws the number; FileExists, FolderExists,
// IsWritableFolder and MayFollow answer false unless told to throw, IdentityOf then answers
// nothing.
class FailingFileSystem : public ObservedFileSystem {
  public:
    explicit FailingFileSystem(FileSystem& target, FileFault fault = {});

    // A new fault; the counts start over.
    void Arm(FileFault fault);

    // The operations that matched the fault so far, the failed one included.
    [[nodiscard]] int Operations() const { return operations_; }
    [[nodiscard]] bool Fired() const { return fired_.has_value(); }
    // What failed first.
    [[nodiscard]] const std::optional<FileCall>& FailedCall() const { return fired_; }

    bool Before(const FileCall& call) override;

  private:
    FileFault fault_;
    int operations_ = 0;
    std::optional<FileCall> fired_;
};

}  // namespace ambrio
