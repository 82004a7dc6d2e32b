/* An empty shared library. */
typedef int vqEmpty;
