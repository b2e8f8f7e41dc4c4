// objc_msgSend and objc_msgSendSuper as Apple's runtime has them: find the method, then jump to it with every argument
// register as it was (x0 to x8, q0 to q7) and the stack untouched.

    .macro SAVE_ARGUMENTS
    stp x29, x30, [sp, #-16]!
    .cfi_def_cfa_offset 16
    .cfi_offset x29, -16
    .cfi_offset x30, -8
    mov x29, sp
    .cfi_def_cfa x29, 16
    sub sp, sp, #208
    stp x0, x1, [sp, #0]
    stp x2, x3, [sp, #16]
    stp x4, x5, [sp, #32]
    stp x6, x7, [sp, #48]
    str x8, [sp, #64]
    stp q0, q1, [sp, #80]
    stp q2, q3, [sp, #112]
    stp q4, q5, [sp, #144]
    stp q6, q7, [sp, #176]
    .endm

    .macro RESTORE_ARGUMENTS
    ldp x0, x1, [sp, #0]
    ldp x2, x3, [sp, #16]
    ldp x4, x5, [sp, #32]
    ldp x6, x7, [sp, #48]
    ldr x8, [sp, #64]
    ldp q0, q1, [sp, #80]
    ldp q2, q3, [sp, #112]
    ldp q4, q5, [sp, #144]
    ldp q6, q7, [sp, #176]
    mov sp, x29
    .cfi_def_cfa sp, 16
    ldp x29, x30, [sp], #16
    .cfi_def_cfa_offset 0
    .cfi_restore x29
    .cfi_restore x30
    .endm

    .text
    .globl DeviceMessageSend
    .type DeviceMessageSend, %function
DeviceMessageSend:
    .cfi_startproc
    cbz x0, 1f
    SAVE_ARGUMENTS
    bl DeviceLookup
    mov x16, x0
    RESTORE_ARGUMENTS
    br x16
1:  // a message to nil: every result register is zero
    mov x1, #0
    movi d0, #0
    movi d1, #0
    movi d2, #0
    movi d3, #0
    ret
    .cfi_endproc
    .size DeviceMessageSend, . - DeviceMessageSend

    .globl DeviceMessageSendSuper
    .type DeviceMessageSendSuper, %function
DeviceMessageSendSuper:
    .cfi_startproc
    SAVE_ARGUMENTS
    bl DeviceLookupSuper
    mov x16, x0
    RESTORE_ARGUMENTS
    ldr x0, [x0] // the receiver, out of the structure that names the superclass
    br x16
    .cfi_endproc
    .size DeviceMessageSendSuper, . - DeviceMessageSendSuper

    .section .note.GNU-stack, "", %progbits
