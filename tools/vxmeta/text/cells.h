// SPDX-License-Identifier: Apache-2.0
// Values as people read them.
#pragma once

#include <string>
#include <vector>

#include "model/type.h"
#include "text/table.h"

namespace vxmeta {

// Visible text of a value; empty for nothing. "yes" and "no", numbers as short as they are exact,
// lists of simple values with blanks between them.
std::string shownValue(const View& value);

// A field of a record; empty also when a flag says that it is not valid, and for the number that
// stands for no value.
std::string shownField(const View& record, const Field& field);

// As above, with its unit behind it.
std::string shownWithUnit(const View& record, const Field& field);

// A value in one line: of a record the fields that say something, of a list of records their
// number;
// "" for an empty text.
std::string shortOf(const View& value);

// How display colours of a list are to be read: its application writes 0 to 1, or 0 to 255.
double colourScale(const View& inks);

// The ink's display colour and its name "#rrggbb"; the plain numbers where they are no colour.
Cell colourCell(const View& ink, double scale);

bool hasColour(const Type& record);

// The records of a list as a table, a field a column; for a summary, without details.
Table tableOf(const View& list, bool isSummary = false);

}  // namespace vxmeta
