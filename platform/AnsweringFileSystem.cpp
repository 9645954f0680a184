#include "platform/AnsweringFileSystem.h"

#include <deque>
#include <exception>
#include <type_traits>
#include <utility>

namespace ambrio {
namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds kLong = 1s;
constexpr std::chrono::milliseconds kSilence = 10s;

// Whether a call has found something to tell of; a call that only does something has when it ends.
template <typename Result>
bool HasFound(const Result& result) {
    if constexpr (std::is_same_v<Result, bool> ||
                  std::is_same_v<Result, std::optional<FileEntry>>) {
        return static_cast<bool>(result);
    } else {
        return true;
    }
}

// Where the file of a slow root lies is the worker's to find out as well.
std::optional<FileIdentity> Settled(std::optional<FileIdentity> identity) {
    if (identity) {
        identity->Settle();
    }
    return identity;
}

}  // namespace

// Fetches entries some at a time, as changing threads for each would cost more than the listing.
class AnsweringFileSystem::Reader : public FolderReader {
  public:
    Reader(AnsweringFileSystem& files, std::wstring root, std::unique_ptr<FolderReader> reader)
        : files_(files), root_(std::move(root)), reader_(std::move(reader)) {}
    ~Reader() override {
        files_.Close([this] { reader_.reset(); });
    }
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;

    bool Next(FileEntry& entry) override {
        if (entries_.empty() && !isAtEnd_) {
            Fetch();
        }
        if (entries_.empty()) {
            if (failure_) {
                std::rethrow_exception(std::exchange(failure_, nullptr));
            }
            return false;
        }
        entry = std::move(entries_.front());
        entries_.pop_front();
        return true;
    }

    std::optional<FileIdentity> Identity() override {
        std::optional<FileIdentity> identity;
        const auto ask = [&] {
            identity = Settled(reader_->Identity());
            return true;
        };
        files_.Work({root_}, ask, files_.yield_);
        return identity;
    }

  private:
    static constexpr std::size_t kAtATime = 64;

    // What was listed before a failure is handed on before it.
    void Fetch() {
        try {
            const auto fetch = [this] {
                FileEntry entry;
                while (entries_.size() < kAtATime) {
                    if (!reader_->Next(entry)) {
                        isAtEnd_ = true;
                        break;
                    }
                    entries_.push_back(entry);
                }
                return true;
            };
            files_.Work({root_}, fetch, files_.yield_);
        } catch (...) {
            isAtEnd_ = true;
            failure_ = std::current_exception();
        }
    }

    AnsweringFileSystem& files_;
    std::wstring root_;
    std::unique_ptr<FolderReader> reader_;
    std::deque<FileEntry> entries_;
    bool isAtEnd_ = false;
    std::exception_ptr failure_;
};

class AnsweringFileSystem::Stream : public TextStream {
  public:
    Stream(AnsweringFileSystem& files, std::wstring root, std::unique_ptr<TextStream> stream)
        : files_(files), root_(std::move(root)), stream_(std::move(stream)) {}
    ~Stream() override {
        files_.Close([this] { stream_.reset(); });
    }
    Stream(const Stream&) = delete;
    Stream& operator=(const Stream&) = delete;

    void WriteLine(const std::wstring& text) override {
        const auto write = [&] {
            stream_->WriteLine(text);
            return true;
        };
        files_.Work({root_}, write, files_.yield_);
    }
    void Flush() override {
        const auto flush = [&] {
            stream_->Flush();
            return true;
        };
        files_.Work({root_}, flush, files_.yield_);
    }

  private:
    AnsweringFileSystem& files_;
    std::wstring root_;
    std::unique_ptr<TextStream> stream_;
};

bool AnsweringFileSystem::IsSilent(const std::wstring& root) {
    const auto silence = silent_.find(root);
    return silence != silent_.end() && roots_.Now() < silence->second.End;
}

void AnsweringFileSystem::Work(Roots roots, const std::function<bool()>& call, const Yield& yield) {
    for (const std::wstring& root : roots) {
        if (IsSilent(root)) {
            throw RuntimeError(silent_.at(root).Reason);
        }
    }
    std::map<std::wstring, ErrorNumber> troubles;
    const auto ask = [&] {
        const auto start = roots_.Now();
        // Looks at the roots when the call has ended without anything, and late.
        const auto lookAtRoots = [&] {
            for (const std::wstring& root : roots) {
                if (root.empty() || roots_.Now() - start < kLong) {
                    continue;
                }
                if (const auto trouble = roots_.TroubleWith(root)) {
                    troubles[root] = *trouble;
                }
            }
        };
        try {
            if (!call()) {
                lookAtRoots();
            }
        } catch (const RuntimeError&) {
            lookAtRoots();
            throw;
        }
    };
    const auto noteTroubles = [&] {
        for (const auto& [root, reason] : troubles) {
            silent_[root] = {roots_.Now() + kSilence, reason};
        }
    };
    try {
        worker_.Do(ask, yield);
    } catch (const RuntimeError&) {
        noteTroubles();
        throw;
    }
    noteTroubles();
}

void AnsweringFileSystem::Close(const std::function<void()>& close) {
    worker_.Do(close, yield_);
}

template <typename Result>
Result AnsweringFileSystem::Ask(const std::wstring& path, const std::function<Result()>& call) {
    const std::wstring root = roots_.RootOf(path);
    if (root.empty()) {
        return call();
    }
    Result result{};
    const auto ask = [&] {
        result = call();
        return HasFound(result);
    };
    Work({root}, ask, yield_);
    return result;
}

bool AnsweringFileSystem::AskWhether(const std::wstring& path, const std::function<bool()>& call) {
    try {
        return Ask<bool>(path, call);
    } catch (const RuntimeError&) {
        return false;
    }
}

bool AnsweringFileSystem::FileExists(const std::wstring& path) {
    return AskWhether(path, [&] { return files_.FileExists(path); });
}

bool AnsweringFileSystem::FolderExists(const std::wstring& path) {
    return AskWhether(path, [&] { return files_.FolderExists(path); });
}

FileEntry AnsweringFileSystem::GetFile(const std::wstring& path) {
    return Ask<FileEntry>(path, [&] { return files_.GetFile(path); });
}

std::optional<FileEntry> AnsweringFileSystem::FindFile(const std::wstring& path) {
    const std::wstring root = roots_.RootOf(path);
    if (!root.empty() && IsSilent(root)) {
        return std::nullopt;  // what cannot be looked at counts as missing
    }
    return Ask<std::optional<FileEntry>>(path, [&] { return files_.FindFile(path); });
}

std::unique_ptr<FolderReader> AnsweringFileSystem::GetFolder(const std::wstring& path) {
    const std::wstring root = roots_.RootOf(path);
    auto reader = Ask<std::unique_ptr<FolderReader>>(path, [&] { return files_.GetFolder(path); });
    return root.empty() ? std::move(reader)
                        : std::make_unique<Reader>(*this, root, std::move(reader));
}

std::optional<FileIdentity> AnsweringFileSystem::IdentityOf(const std::wstring& path) {
    if (roots_.RootOf(path).empty()) {
        return files_.IdentityOf(path);
    }
    return Ask<std::optional<FileIdentity>>(path, [&] { return Settled(files_.IdentityOf(path)); });
}

bool AnsweringFileSystem::FindsFoldedNames(const std::wstring& folder) {
    return AskWhether(folder, [&] { return files_.FindsFoldedNames(folder); });
}

void AnsweringFileSystem::CreateFolder(const std::wstring& path) {
    Ask<bool>(path, [&] {
        files_.CreateFolder(path);
        return true;
    });
}

void AnsweringFileSystem::SetAttributes(const std::wstring& path, FileAttributes attributes) {
    Ask<bool>(path, [&] {
        files_.SetAttributes(path, attributes);
        return true;
    });
}

void AnsweringFileSystem::DeleteFile(const std::wstring& path, bool force) {
    Ask<bool>(path, [&] {
        files_.DeleteFile(path, force);
        return true;
    });
}

void AnsweringFileSystem::CopyFile(const std::wstring& source, const std::wstring& destination,
                                   bool overwrite, const Yield& yield) {
    const std::wstring from = roots_.RootOf(source);
    const std::wstring to = roots_.RootOf(destination);
    if (from.empty() && to.empty()) {
        files_.CopyFile(source, destination, overwrite, yield);
        return;
    }
    const auto copy = [&] {
        files_.CopyFile(source, destination, overwrite, {});
        return true;
    };
    if (yield) {
        yield();  // the worker's own time may be too short for that
    }
    Work({from, to}, copy, yield ? yield : yield_);
}

void AnsweringFileSystem::ExpectCopies(const std::vector<ExpectedCopy>& copies) {
    const auto isSilent = [this](const std::wstring& path) {
        const std::wstring root = roots_.RootOf(path);
        return !root.empty() && IsSilent(root);
    };
    if (!copies.empty() && !isSilent(copies.front().Source) &&
        !isSilent(copies.front().Destination)) {
        files_.ExpectCopies(copies);
    }
}

std::unique_ptr<TextStream> AnsweringFileSystem::OpenForAppending(const std::wstring& path) {
    const std::wstring root = roots_.RootOf(path);
    auto stream =
        Ask<std::unique_ptr<TextStream>>(path, [&] { return files_.OpenForAppending(path); });
    return root.empty() ? std::move(stream)
                        : std::make_unique<Stream>(*this, root, std::move(stream));
}

bool AnsweringFileSystem::IsWritableFolder(const std::wstring& path, const std::wstring& file) {
    return AskWhether(path, [&] { return files_.IsWritableFolder(path, file); });
}

bool AnsweringFileSystem::MayFollow(const std::wstring& folder) {
    return AskWhether(folder, [&] { return files_.MayFollow(folder); });
}

}  // namespace ambrio
