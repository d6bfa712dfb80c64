// Called at the start of a function with more than a page of local data: touches the stack page by
// page, since Windows adds the next page only when the one above it is touched. The size comes in
// rax, and no register may change.

asm(R"(
    .text
    .globl __chkstk
__chkstk:
    subq $16, %rsp
    movq %r10, (%rsp)
    movq %r11, 8(%rsp)
    xorq %r11, %r11
    leaq 24(%rsp), %r10
    subq %rax, %r10
    cmovbq %r11, %r10
    movq %gs:0x10, %r11
    cmpq %r11, %r10
    jae 2f
    andq $-0x1000, %r10
1:
    subq $0x1000, %r11
    movb $0, (%r11)
    cmpq %r11, %r10
    jne 1b
2:
    movq (%rsp), %r10
    movq 8(%rsp), %r11
    addq $16, %rsp
    retq
)");
