// A program without tests, with which GoogleTest's header is compiled for all the others.
