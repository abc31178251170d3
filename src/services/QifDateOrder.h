#pragma once

// How an all-numeric date of a QIF file is read. Auto asks the parser to tell it from the file.
enum class QifDateOrder { Auto = 0, MonthFirst = 1, DayFirst = 2 };
