#pragma once

// What the lines behind a "!" header are. Unknown is also what holds before the first header, and its
// records are read as transactions: some programs write none.
enum class QifSection { Transactions = 0, Metadata = 1, AccountBlock = 2, Categories = 3, Unknown = 4 };
