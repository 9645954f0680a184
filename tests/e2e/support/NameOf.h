#pragma once

#include <gtest/gtest.h>

#include <string>

namespace ambrio::e2e {

// Names the cases of a table of structures by their member Name.
struct NameOf {
    template <typename Case>
    std::string operator()(const testing::TestParamInfo<Case>& info) const {
        return info.param.Name;
    }
};

}  // namespace ambrio::e2e
