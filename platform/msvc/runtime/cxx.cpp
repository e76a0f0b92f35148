// The few compiled functions of the C++ library that its headers refer to, which Debian builds for Linux
// alone.
#include <atomic>
#include <functional>
#include <memory>
#include <new>
#include <optional>
#include <stdexcept>
#include <string>
#include <typeinfo>
#include <variant>

#include <stdlib.h>
#include <string.h>

namespace std {

const nothrow_t nothrow{};

exception::~exception() noexcept {}
const char* exception::what() const noexcept
{
    return "std::exception";
}

bad_alloc::bad_alloc() noexcept {}
bad_alloc::~bad_alloc() noexcept {}
const char* bad_alloc::what() const noexcept
{
    return "std::bad_alloc";
}

bad_array_new_length::bad_array_new_length() noexcept {}
bad_array_new_length::~bad_array_new_length() noexcept {}
const char* bad_array_new_length::what() const noexcept
{
    return "std::bad_array_new_length";
}

// Texts of errors are copied; without memory they are empty.
__libcpp_refstring::__libcpp_refstring(const char* psz) : __imp_(_strdup(psz)) {}
__libcpp_refstring::__libcpp_refstring(const __libcpp_refstring& other) noexcept
    : __imp_(_strdup(other.c_str()))
{}
__libcpp_refstring& __libcpp_refstring::operator=(const __libcpp_refstring& other) noexcept
{
    char* const psz = _strdup(other.c_str());
    free(const_cast<char*>(__imp_));
    __imp_ = psz;
    return *this;
}
__libcpp_refstring::~__libcpp_refstring()
{
    free(const_cast<char*>(__imp_));
}

logic_error::logic_error(const char* psz) : __imp_(psz) {}
logic_error::logic_error(const string& str) : __imp_(str.c_str()) {}
logic_error::logic_error(const logic_error& other) noexcept : __imp_(other.__imp_) {}
logic_error::~logic_error() noexcept {}
const char* logic_error::what() const noexcept
{
    return __imp_.c_str() ? __imp_.c_str() : "";
}
logic_error& logic_error::operator=(const logic_error& other) noexcept
{
    __imp_ = other.__imp_;
    return *this;
}

runtime_error::runtime_error(const char* psz) : __imp_(psz) {}
runtime_error::runtime_error(const string& str) : __imp_(str.c_str()) {}
runtime_error::runtime_error(const runtime_error& other) noexcept : __imp_(other.__imp_) {}
runtime_error::~runtime_error() noexcept {}
const char* runtime_error::what() const noexcept
{
    return __imp_.c_str() ? __imp_.c_str() : "";
}
runtime_error& runtime_error::operator=(const runtime_error& other) noexcept
{
    __imp_ = other.__imp_;
    return *this;
}

length_error::~length_error() noexcept {}
out_of_range::~out_of_range() noexcept {}
invalid_argument::~invalid_argument() noexcept {}
domain_error::~domain_error() noexcept {}
range_error::~range_error() noexcept {}
overflow_error::~overflow_error() noexcept {}
underflow_error::~underflow_error() noexcept {}

bad_cast::bad_cast() noexcept {}
bad_cast::~bad_cast() noexcept {}
const char* bad_cast::what() const noexcept
{
    return "std::bad_cast";
}

bad_typeid::bad_typeid() noexcept {}
bad_typeid::~bad_typeid() noexcept {}
const char* bad_typeid::what() const noexcept
{
    return "std::bad_typeid";
}

bad_optional_access::~bad_optional_access() noexcept {}
const char* bad_optional_access::what() const noexcept
{
    return "std::bad_optional_access";
}

const char* bad_variant_access::what() const noexcept
{
    return "std::bad_variant_access";
}

int type_info::__compare(const type_info& other) const noexcept
{
    return &other == this ? 0 : strcmp(__data.__decorated_name, other.__data.__decorated_name);
}

} // namespace std

_LIBCPP_BEGIN_NAMESPACE_STD

bad_function_call::~bad_function_call() noexcept {}

bad_weak_ptr::~bad_weak_ptr() noexcept {}
const char* bad_weak_ptr::what() const noexcept
{
    return "std::bad_weak_ptr";
}

__shared_count::~__shared_count() {}
__shared_weak_count::~__shared_weak_count() {}

// The counts are one below the number of owners.
void __shared_weak_count::__release_weak() noexcept
{
    if (__atomic_sub_fetch(&__shared_weak_owners_, 1, __ATOMIC_ACQ_REL) == -1) {
        __on_zero_shared_weak();
    }
}

__shared_weak_count* __shared_weak_count::lock() noexcept
{
    long nOwners = __atomic_load_n(&__shared_owners_, __ATOMIC_SEQ_CST);
    while (nOwners != -1) {
        if (__atomic_compare_exchange_n(&__shared_owners_, &nOwners, nOwners + 1, false, __ATOMIC_SEQ_CST,
                                        __ATOMIC_SEQ_CST))
        {
            return this;
        }
    }
    return nullptr;
}

const void* __shared_weak_count::__get_deleter(const type_info&) const noexcept
{
    return nullptr;
}

[[noreturn]] void __libcpp_verbose_abort(const char*, ...)
{
    abort();
}

size_t __next_prime(size_t n)
{
    const auto isPrime = [](size_t nCandidate) {
        for (size_t d = 3; d <= nCandidate / d; d += 2) {
            if (nCandidate % d == 0) {
                return false;
            }
        }
        return true;
    };
    if (n <= 2) {
        return n == 0 ? 0 : 2;
    }
    for (n |= 1; !isPrime(n); n += 2) {
    }
    return n;
}

_LIBCPP_END_NAMESPACE_STD
