/* The library that the tests of DynamicLibrary load. */
__attribute__((visibility("default"))) int vq_answer(void);

int vq_answer(void)
{
    return 42;
}
