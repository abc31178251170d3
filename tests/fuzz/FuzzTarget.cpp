// One libFuzzer entry point, built once per check: OMBREL_FUZZ_CHECK names the FuzzChecks function.

#include "FuzzChecks.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString failure = FuzzChecks::OMBREL_FUZZ_CHECK(
        QByteArray::fromRawData(reinterpret_cast<const char *>(data), qsizetype(size)));
    if (!failure.isEmpty()) {
        std::fprintf(stderr, "%s\n", qPrintable(failure));
        std::abort();
    }
    return 0;
}
