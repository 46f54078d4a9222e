// SPDX-License-Identifier: BSL-1.0
#include "faults/FailingMemory.h"

#if !defined(_WIN32)
#include <dlfcn.h>
#endif

#include <array>
#include <cstdint>
#include <cstdlib>
#include <new>
#include <string>

// The linker leads calls of malloc here (--wrap=malloc): Eigen allocates by it.
extern "C" {
void* __real_malloc(std::size_t size);  // NOLINT(bugprone-reserved-identifier)
void* __wrap_malloc(std::size_t size);  // NOLINT(bugprone-reserved-identifier)
}

namespace {

enum class State : std::uint32_t { Untracked = 0x5EED0001, Tracked, Freed };

/// Stands before every block, and links those of a FailingMemory.
struct alignas(std::max_align_t) Header {
  State state;
  const void* caller;
  Header* before;
  Header* after;
};

struct Memory {
  bool isFailing = false;
  std::size_t allocations = 0;
  std::size_t failing = 0;
  std::size_t freedTwice = 0;
  Header* tracked = nullptr;
  Header* freed = nullptr;
};

Memory& memory() {
  static Memory instance;
  return instance;
}

void push(Header*& list, Header* block) {
  block->before = nullptr;
  block->after = list;
  if (list != nullptr) list->before = block;
  list = block;
}

void remove(Header*& list, Header* block) {
  (block->before != nullptr ? block->before->after : list) = block->after;
  if (block->after != nullptr) block->after->before = block->before;
}

void freeAll(Header*& list) {
  while (list != nullptr) {
    Header* block = list;
    list = block->after;
    std::free(block);  // NOLINT(cppcoreguidelines-no-malloc)
  }
}

bool failsNow() {
  Memory& m = memory();
  return m.isFailing && ++m.allocations == m.failing;
}

void* take(std::size_t size, const void* caller) noexcept {
  Memory& m = memory();
  if (failsNow()) return nullptr;
  auto* block = static_cast<Header*>(__real_malloc(sizeof(Header) + size));
  if (block == nullptr) return nullptr;
  block->state = m.isFailing ? State::Tracked : State::Untracked;
  block->caller = caller;
  if (m.isFailing) push(m.tracked, block);
  return block + 1;
}

void* takeOrThrow(std::size_t size, const void* caller) {
  void* block = take(size, caller);
  if (block == nullptr) throw std::bad_alloc();
  return block;
}

void give(void* p) noexcept {
  if (p == nullptr) return;
  Memory& m = memory();
  Header* block = static_cast<Header*>(p) - 1;
  if (block->state == State::Freed) {
    ++m.freedTwice;
    return;
  }
  if (block->state == State::Tracked) remove(m.tracked, block);
  block->state = State::Freed;
  if (m.isFailing) {
    push(m.freed, block);
  } else {
    std::free(block);  // NOLINT(cppcoreguidelines-no-malloc)
  }
}

bool isOfClipper(const void* caller) {
#if defined(_WIN32)
  // The clipper is part of the program there, since a DLL would keep an operator new of its own.
  // What was lost is then not told apart.
  return caller != nullptr;
#else
  Dl_info info = {};
  return dladdr(caller, &info) != 0 &&
         std::string(info.dli_fname).find("polyclipping") != std::string::npos;
#endif
}

}  // namespace

void* __wrap_malloc(std::size_t size) { return failsNow() ? nullptr : __real_malloc(size); }

// The return address tells whose block it is.
void* operator new(std::size_t size) { return takeOrThrow(size, __builtin_return_address(0)); }
void* operator new[](std::size_t size) { return takeOrThrow(size, __builtin_return_address(0)); }
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  return take(size, __builtin_return_address(0));
}
void* operator new[](std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  return take(size, __builtin_return_address(0));
}
void operator delete(void* p) noexcept { give(p); }
void operator delete[](void* p) noexcept { give(p); }
void operator delete(void* p, std::size_t /*size*/) noexcept { give(p); }
void operator delete[](void* p, std::size_t /*size*/) noexcept { give(p); }
void operator delete(void* p, const std::nothrow_t& /*tag*/) noexcept { give(p); }
void operator delete[](void* p, const std::nothrow_t& /*tag*/) noexcept { give(p); }

namespace TestSupport {

FailingMemory::FailingMemory(std::size_t failing) {
  Memory& m = memory();
  m.allocations = 0;
  m.failing = failing;
  m.isFailing = true;
}

FailingMemory::~FailingMemory() {
  memory().isFailing = false;
  freeAll(memory().freed);
}

std::size_t FailingMemory::allocations() const { return memory().allocations; }

bool FailingMemory::hasFailed() const {
  return memory().failing > 0 && memory().allocations >= memory().failing;
}

MemoryReport memoryReport() {
  Memory& m = memory();
  MemoryReport report;
  report.freedTwice = m.freedTwice;
  for (const Header* block = m.tracked; block != nullptr; block = block->after) {
    ++(isOfClipper(block->caller) ? report.lostByClipper : report.lost);
  }
  freeAll(m.tracked);
  m.freedTwice = 0;
  return report;
}

}  // namespace TestSupport
