#pragma once

#include "tests/failure/Injection.h"
#include "tests/failure/Module.h"

// The answers that lack something and are meant: what is documented to cost a part of an answer and not the whole.

/// True when the handler was told that the answer is complete.
bool isCompleted(const Lines& answer);

/// The answer without its first instance or path: a BIOS that can't be described does not cost the other firmware.
Lines withoutTheFirst(const Lines& answer);

/// True for a BIOS that is left out, and for texts of a base board that are.
bool isDocumentedLess(const Lines& answer, const Lines& expected, const char* className);

/// True when the answers differ only in facts that this call tells, and those have the values of a machine that does
/// not tell them.
bool isWithoutWhatTheCallTells(Call call, const Lines& answer, const Lines& expected);
