/* SPDX-License-Identifier: BSL-1.0 */
/* A plugin for QEMU's user-mode emulators that prints how many instructions a program has executed.
   The declarations are those of QEMU's plugin interface, version 1, for which Debian has no header. */
#include <inttypes.h>
#include <stddef.h>
#include <stdint.h>
#include <stdio.h>

#define EXPORTED __attribute__((visibility("default")))

typedef uint64_t plugin_id;
struct qemu_plugin_tb; /* a block of translated instructions */
enum { kAddU64 = 0 };

void qemu_plugin_register_vcpu_tb_trans_cb(plugin_id, void (*)(plugin_id, struct qemu_plugin_tb*));
size_t qemu_plugin_tb_n_insns(const struct qemu_plugin_tb*);
void qemu_plugin_register_vcpu_tb_exec_inline(struct qemu_plugin_tb*, int operation, void* counter,
                                              uint64_t summand);
void qemu_plugin_register_atexit_cb(plugin_id, void (*)(plugin_id, void*), void* data);

EXPORTED int qemu_plugin_version = 1;

static uint64_t executed = 0;

static void count_block(plugin_id id, struct qemu_plugin_tb* block) {
  (void)id;
  qemu_plugin_register_vcpu_tb_exec_inline(block, kAddU64, &executed, qemu_plugin_tb_n_insns(block));
}

static void print_count(plugin_id id, void* data) {
  (void)id;
  (void)data;
  fprintf(stderr, "instructions %" PRIu64 "\n", executed);
}

EXPORTED int qemu_plugin_install(plugin_id id, const void* info, int argc, char** argv) {
  (void)info;
  (void)argc;
  (void)argv;
  qemu_plugin_register_vcpu_tb_trans_cb(id, count_block);
  qemu_plugin_register_atexit_cb(id, print_count, NULL);
  return 0;
}
