#pragma once

// Imports of a large generated household: a QIF export of all its accounts, with the transfers
// between them and the split lines, into an empty database and then once more (every record a
// duplicate); and a CSV file of the same size into one account. Prints its own rows of the table;
// false when a file could not be made or an import failed.
bool runImportBench(int runs);
