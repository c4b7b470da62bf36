// The types of the kernel that the declarations of the frameworks name.
#pragma once
#include <stdint.h>
typedef uint32_t mach_port_t, mach_msg_id_t, natural_t;
typedef int kern_return_t;
typedef struct {
    int msgh_bits;
} mach_msg_header_t;
typedef struct {
    unsigned int val[8];
} audit_token_t;
typedef unsigned char uuid_t[16];
typedef unsigned int boolean_t;
typedef unsigned int vm_size_t;
