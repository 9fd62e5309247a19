/* A plugin of QEMU 7.2 and later that prints how many instructions the emulated program executed. What it needs of the
   plugins' interface is declared here, since Debian has no package with the header. */
#include <inttypes.h>
#include <stddef.h>
#include <stdint.h>
#include <stdio.h>

typedef uint64_t qemu_plugin_id_t;
struct qemu_plugin_tb; /* a block of translated instructions */
enum qemu_plugin_op { QEMU_PLUGIN_INLINE_ADD_U64 };
void qemu_plugin_register_vcpu_tb_trans_cb(qemu_plugin_id_t, void (*)(qemu_plugin_id_t, struct qemu_plugin_tb*));
void qemu_plugin_register_vcpu_tb_exec_inline(struct qemu_plugin_tb*, enum qemu_plugin_op, void*, uint64_t);
size_t qemu_plugin_tb_n_insns(const struct qemu_plugin_tb*);
void qemu_plugin_register_atexit_cb(qemu_plugin_id_t, void (*)(qemu_plugin_id_t, void*), void*);

int qemu_plugin_version = 1;

static uint64_t instructions;

static void count_block(qemu_plugin_id_t id, struct qemu_plugin_tb* block) {
  (void)id;
  qemu_plugin_register_vcpu_tb_exec_inline(block, QEMU_PLUGIN_INLINE_ADD_U64, &instructions,
                                           qemu_plugin_tb_n_insns(block));
}

static void print(qemu_plugin_id_t id, void* data) {
  (void)id;
  (void)data;
  fprintf(stderr, "%" PRIu64 "\n", instructions);
}

int qemu_plugin_install(qemu_plugin_id_t id, const void* info, int argc, char** argv) {
  (void)info;
  (void)argc;
  (void)argv;
  qemu_plugin_register_vcpu_tb_trans_cb(id, count_block);
  qemu_plugin_register_atexit_cb(id, print, NULL);
  return 0;
}
