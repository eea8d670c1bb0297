// SPDX-License-Identifier: Apache-2.0
#include "support/failing_memory.h"

#include <cerrno>
#include <cstdlib>
#include <new>

#ifdef __GLIBC__
#include <malloc.h>
#endif

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__) || !defined(__GLIBC__)
#define XMPLIB_TEST_OWNS_MALLOC 0
#elif defined(__has_feature)
#define XMPLIB_TEST_OWNS_MALLOC \
  !(__has_feature(address_sanitizer) || __has_feature(thread_sanitizer))
#else
#define XMPLIB_TEST_OWNS_MALLOC 1
#endif

namespace {

constexpr long kNever = -1;
thread_local long allocationsLeft = kNever;
thread_local Shortage kind = Shortage::once;
thread_local bool hasFailed = false;

bool failsNow() {
  if (allocationsLeft == kNever) return false;
  if (allocationsLeft > 0) {
    --allocationsLeft;
    return false;
  }
  if (kind == Shortage::once) allocationsLeft = kNever;
  hasFailed = true;
  return true;
}

}  // namespace

bool reachesMalloc() { return XMPLIB_TEST_OWNS_MALLOC; }

std::size_t bytesInUse() {
#ifdef __GLIBC__
  return mallinfo2().uordblks;
#else
  return 0;
#endif
}

void runOutAfter(long passing, Shortage shortage) {
  kind = shortage;
  hasFailed = false;
  allocationsLeft = passing;
}

bool endShortage() {
  allocationsLeft = kNever;
  return hasFailed;
}

#if XMPLIB_TEST_OWNS_MALLOC

static void* noMemory() {
  errno = ENOMEM;
  return nullptr;
}

// operator new and strdup come here too.
extern "C" {
void* __libc_malloc(std::size_t size);                     // NOLINT(bugprone-reserved-identifier)
void* __libc_calloc(std::size_t count, std::size_t size);  // NOLINT(bugprone-reserved-identifier)
void* __libc_realloc(void* memory, std::size_t size);      // NOLINT(bugprone-reserved-identifier)

void* malloc(std::size_t size) noexcept { return failsNow() ? noMemory() : __libc_malloc(size); }
void* calloc(std::size_t count, std::size_t size) noexcept {
  return failsNow() ? noMemory() : __libc_calloc(count, size);
}
void* realloc(void* memory, std::size_t size) noexcept {
  return failsNow() ? noMemory() : __libc_realloc(memory, size);
}
}

#else

namespace {

void* allocate(std::size_t size) {
  void* memory = failsNow() ? nullptr : std::malloc(size == 0 ? 1 : size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

}  // namespace

void* operator new(std::size_t size) { return allocate(size); }
void* operator new[](std::size_t size) { return allocate(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return failsNow() ? nullptr : std::malloc(size == 0 ? 1 : size);
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }

#endif
