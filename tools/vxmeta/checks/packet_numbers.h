// SPDX-License-Identifier: Apache-2.0
// Stored texts that stand for something else: which are what they should be.
#pragma once

#include <string>

namespace vxmeta {

enum class ValueKind { integer, real, boolean, reals };

// "whole number" ...
const char* nameOf(ValueKind kind);

// Whether the library reads the text as such a value. Of a list, every word has to be a number: the
// library reads 0 from one that is none.
bool isValue(ValueKind kind, const std::string& text);

// Whether it is a date in the form of XMP (ISO 8601), from a year alone to fractions of a second,
// that the calendar has.
bool isDate(const std::string& text);

}  // namespace vxmeta
