#pragma once

#include "platform/CopyAhead.h"
#include "platform/RuntimeError.h"
#include "tests/conformance/WorldBehind.h"

namespace ambrio {

// Is told of each copy just before it is asked for.
class ForewarnedFileSystem : public ForwardingFileSystem {
  public:
    using ForwardingFileSystem::ForwardingFileSystem;

    void CopyFile(const std::wstring& source, const std::wstring& destination, bool overwrite,
                  const Yield& yield) override {
        const Expecting expecting(Target(), source, destination, !overwrite);
        ForwardingFileSystem::CopyFile(source, destination, overwrite, yield);
    }

  private:
    class Expecting {
      public:
        Expecting(FileSystem& files, const std::wstring& source, const std::wstring& destination,
                  bool seemsNew)
            : files_(files) {
            files_.ExpectCopies({{source, destination, SizeOf(source), seemsNew}});
        }
        ~Expecting() { files_.EndExpecting(); }
        Expecting(const Expecting&) = delete;
        Expecting& operator=(const Expecting&) = delete;

      private:
        [[nodiscard]] std::uint64_t SizeOf(const std::wstring& path) {
            try {
                return files_.GetFile(path).Size;
            } catch (const RuntimeError&) {
                return 0;  // the copy says what is wrong with it
            }
        }

        FileSystem& files_;
    };
};

// Another world in which copies are made ahead by a pool of this type.
template <typename PoolType>
class AheadWorld : public WorldBehind {
  public:
    using WorldBehind::WorldBehind;

    FileSystem& Files() override { return files_; }

  private:
    PoolType pool_;
    CopyAhead ahead_{FilesBehind(), pool_, 0};
    ForewarnedFileSystem files_{ahead_};
};

}  // namespace ambrio
