// The library's own ends of a failure, replaced, as they weigh more than a tenth of the program
// with the texts that they make and this program shows nobody. The group must be whole, or the
// linker takes the library's as well.
#include <cstdlib>
#include <exception>
#include <new>

// NOLINTBEGIN(bugprone-reserved-identifier, cert-dcl58-cpp): the library's own names

namespace __gnu_cxx {

// What the library calls for an exception that nobody catches. Its own would write the exception's
// name to a console that this program has not.
void __verbose_terminate_handler() {
    std::abort();
}

}  // namespace __gnu_cxx

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
