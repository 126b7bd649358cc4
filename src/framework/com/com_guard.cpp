#include "src/framework/com/com_guard.h"

namespace file_explorer {
namespace {

struct ForeignRun {
  void (*body)(void*);
  void* context;
  bool completed;
};

}  // namespace
}  // namespace file_explorer

extern "C" {

// Calls body(context) and gives 1; gives 0 when a structured exception left it.
int file_explorer_call_guarded(void (*body)(void*), void* context);

static void RunAndCatch(void* context) {
  auto* run = static_cast<file_explorer::ForeignRun*>(context);
  try {
    run->body(run->context);
    run->completed = true;
  } catch (...) {
    run->completed = false;
  }
}
}

// GCC has no __try. This is the frame that it would make: the call lies in one scope whose filter is the
// constant 1 (execute the handler), and the handler returns 0.
asm(R"(
    .text
    .p2align 4
    .globl  file_explorer_call_guarded
    .def    file_explorer_call_guarded; .scl 2; .type 32; .endef
    .seh_proc file_explorer_call_guarded
file_explorer_call_guarded:
    subq    $40, %rsp
    .seh_stackalloc 40
    .seh_endprologue
.Lguarded_begin:
    movq    %rcx, %rax
    movq    %rdx, %rcx
    call    *%rax
    nop
.Lguarded_end:
    movl    $1, %eax
    addq    $40, %rsp
    ret
.Lguarded_handler:
    xorl    %eax, %eax
    addq    $40, %rsp
    ret
    .seh_handler __C_specific_handler, @except
    .seh_handlerdata
    .long   1
    .rva    .Lguarded_begin, .Lguarded_end
    .long   1
    .rva    .Lguarded_handler
    .text
    .seh_endproc
)");

bool file_explorer::com_detail::RunGuarded(void (*body)(void*), void* context) noexcept {
  ForeignRun run = {body, context, false};
  return file_explorer_call_guarded(&RunAndCatch, &run) != 0 && run.completed;
}
