#include <cstdlib>

namespace __gnu_cxx {  // NOLINT(bugprone-reserved-identifier): the library's own name

// What the library calls for an exception that nobody catches. Its own would write the exception's
// name to a console that this program has not, and bring 46 KB with it that make the name readable.
void __verbose_terminate_handler() {  // NOLINT(bugprone-reserved-identifier)
    std::abort();
}

}  // namespace __gnu_cxx
