// The entry point of a fuzzer's program; AMBRIO_FUZZER is the one of Fuzzers.h that it runs.

#include "tests/fuzz/Fuzzers.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    ambrio::AMBRIO_FUZZER(ambrio::FuzzInput({data, size}));
    return 0;
}
