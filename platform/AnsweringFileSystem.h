#pragma once

#include <chrono>
#include <functional>
#include <initializer_list>
#include <map>
#include <string>

#include "platform/FileSystem.h"
#include "platform/RuntimeError.h"
#include "platform/SlowRoots.h"
#include "platform/Worker.h"

namespace ambrio {

// A file system whose user goes on answering while a slow root keeps it waiting: every call about
// one is made by a worker, listings and text files included. All else goes straight to the file
// system behind it.
//
// A root that could not be reached and took its time to say so is not asked again for ten seconds:
// what is asked of it then fails at once, as it failed before. A tree of a thousand folders on a
// server that has gone would otherwise keep the run for hours.
class AnsweringFileSystem : public FileSystem {
  public:
    // All three must live longer.
    AnsweringFileSystem(FileSystem& files, SlowRoots& roots, Worker& worker)
        : files_(files), roots_(roots), worker_(worker) {}

    // Is called from now on while the worker is at work.
    void AnswerWith(Yield yield) { yield_ = std::move(yield); }

    bool FileExists(const std::wstring& path) override;
    bool FolderExists(const std::wstring& path) override;
    FileEntry GetFile(const std::wstring& path) override;
    std::optional<FileEntry> FindFile(const std::wstring& path) override;
    std::unique_ptr<FolderReader> GetFolder(const std::wstring& path) override;
    std::optional<FileIdentity> IdentityOf(const std::wstring& path) override;
    bool FindsFoldedNames(const std::wstring& folder) override;
    void CreateFolder(const std::wstring& path) override;
    void SetAttributes(const std::wstring& path, FileAttributes attributes) override;
    void DeleteFile(const std::wstring& path, bool force) override;
    void CopyFile(const std::wstring& source, const std::wstring& destination, bool overwrite,
                  const Yield& yield) override;
    // Hints are passed on at once; a slow root that is silent gets none.
    void ExpectCopies(const std::vector<ExpectedCopy>& copies) override;
    void ExpectNothing() override { files_.ExpectNothing(); }
    void EndExpecting() override { files_.EndExpecting(); }
    std::unique_ptr<TextStream> OpenForAppending(const std::wstring& path) override;
    bool IsWritableFolder(const std::wstring& path, const std::wstring& file) override;
    bool MayFollow(const std::wstring& folder) override;
    [[nodiscard]] std::wstring FoldedName(const std::wstring& name) const override {
        return files_.FoldedName(name);
    }

  private:
    class Reader;
    class Stream;

    struct Silence {
        std::chrono::milliseconds End{};
        ErrorNumber Reason{};
    };
    using Roots = std::initializer_list<std::wstring>;

    // The result of a call about one path.
    template <typename Result>
    Result Ask(const std::wstring& path, const std::function<Result()>& call);
    // The same for a question that has an answer whatever goes wrong.
    bool AskWhether(const std::wstring& path, const std::function<bool()>& call);
    // Has the worker make a call about these roots, which may be empty. It gives false when it
    // found nothing where it looked. Throws what it throws, or the reason why a root is not asked.
    void Work(Roots roots, const std::function<bool()>& call, const Yield& yield);
    // Has the worker let go of something.
    void Close(const std::function<void()>& close);
    [[nodiscard]] bool IsSilent(const std::wstring& root);

    FileSystem& files_;
    SlowRoots& roots_;
    Worker& worker_;
    Yield yield_;
    std::map<std::wstring, Silence> silent_;
};

}  // namespace ambrio
