#include "tests/model/Stage.h"

#include <array>
#include <cstddef>

namespace ambrio {
namespace {

struct StageFacts {
    const char* Name;
    std::optional<FileOperation> Operation;
};

constexpr std::array<StageFacts, static_cast<std::size_t>(Stage::End)> kStages{{
    {"save the time of the run", std::nullopt},
    {"try the log's folder", FileOperation::IsWritableFolder},
    {"look for the old log", FileOperation::FileExists},
    {"remove the old log", FileOperation::DeleteFile},
    {"open the log", FileOperation::OpenForAppending},
    {"write a line of the log", FileOperation::WriteLine},
    {"flush the log", FileOperation::Flush},
    {"look for the source folder", FileOperation::FolderExists},
    {"look whose link the source is", FileOperation::MayFollow},
    {"list the source folder", FileOperation::GetFolder},
    {"walk the source listing", FileOperation::Next},
    {"look for the destination folder", FileOperation::FolderExists},
    {"make the destination folder", FileOperation::CreateFolder},
    {"look whose link the destination is", FileOperation::MayFollow},
    {"list the destination folder", FileOperation::GetFolder},
    {"walk the destination listing", FileOperation::Next},
    {"look for a leftover's file", FileOperation::GetFile},
    {"remove a leftover", FileOperation::DeleteFile},
    {"tell folders apart", FileOperation::IdentityOf},
    {"read a source file", FileOperation::GetFile},
    {"look for a copy to remove", FileOperation::FileExists},
    {"remove a copy", FileOperation::DeleteFile},
    {"read the source after a removal", FileOperation::GetFile},
    {"look for a copy to replace", FileOperation::FindFile},
    {"read a copy", FileOperation::FindFile},
    {"make a copy writable", FileOperation::SetAttributes},
    {"copy a file", FileOperation::CopyFile},
    {"read the source for its archive bit", FileOperation::GetFile},
    {"clear the archive bit", FileOperation::SetAttributes},
    {"look for the second saver", FileOperation::FileExists},
}};

}  // namespace

const char* NameOf(Stage stage) {
    return kStages.at(static_cast<std::size_t>(stage)).Name;
}

std::optional<FileOperation> OperationOf(Stage stage) {
    return kStages.at(static_cast<std::size_t>(stage)).Operation;
}

}  // namespace ambrio
