// The library's own ends of a failure, replaced, as they weigh more than a tenth of the program
// with the texts that they make and this program shows nobody. The group must be whole, or the
// linker takes the library's as well.
#include <cstddef>
#include <cstdlib>
#include <exception>
#include <new>
#include <string>

// NOLINTBEGIN(bugprone-reserved-identifier, cert-dcl58-cpp): the library's own names

namespace __gnu_cxx {

// What the library calls for an exception that nobody catches. Its own would write the exception's
// name to a console that this program has not.
void __verbose_terminate_handler() {
    std::abort();
}

}  // namespace __gnu_cxx

#if _GLIBCXX_RELEASE >= 13
// Not a failure's, but kept out for the same reason: from that version on every change of a text
// may call this member, which the library has in one object with all others of its class.
template void std::basic_string<wchar_t>::_M_replace_cold(wchar_t*, std::size_t, const wchar_t*,
                                                          std::size_t, std::size_t);
#endif

namespace std {

void __throw_bad_alloc() {
    throw bad_alloc();
}
void __throw_bad_array_new_length() {
    throw bad_array_new_length();
}

// What only a mistake in this program can cause: an exception of no kind of its own, as nobody
// asks.
void __throw_bad_cast() {
    throw exception();
}
void __throw_bad_typeid() {
    throw exception();
}
void __throw_bad_exception() {
    throw exception();
}
void __throw_logic_error(const char* /*text*/) {
    throw exception();
}
void __throw_domain_error(const char* /*text*/) {
    throw exception();
}
void __throw_invalid_argument(const char* /*text*/) {
    throw exception();
}
void __throw_length_error(const char* /*text*/) {
    throw exception();
}
void __throw_out_of_range(const char* /*text*/) {
    throw exception();
}
void __throw_out_of_range_fmt(const char* /*text*/, ...) {
    throw exception();
}
void __throw_runtime_error(const char* /*text*/) {
    throw exception();
}
void __throw_range_error(const char* /*text*/) {
    throw exception();
}
void __throw_overflow_error(const char* /*text*/) {
    throw exception();
}
void __throw_underflow_error(const char* /*text*/) {
    throw exception();
}

}  // namespace std

// NOLINTEND(bugprone-reserved-identifier, cert-dcl58-cpp)
