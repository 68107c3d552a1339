// Takes the input for versions, one a line, and holds their order against the laws of a total one.
#include "services/update/ReleaseVersion.h"

using namespace trovell;

namespace {

void require(bool holds)
{
    if (!holds)
        __builtin_trap();
}

void requireOrder(const ReleaseVersion& a, const ReleaseVersion& b, const ReleaseVersion& c)
{
    require((a <=> b) == (0 <=> (b <=> a)));
    require((a == b) == ((a <=> b) == 0));
    require(!(a <= b && b <= c) || a <= c);
    require(a != b || (a <=> c) == (b <=> c));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const QByteArray input(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    QList<ReleaseVersion> versions;
    const QList<QByteArray> lines = input.split('\n').mid(0, 6);
    for (const QByteArray& line : lines)
        if (const auto version = ReleaseVersion::parse(QString::fromUtf8(line)))
            versions.append(*version);
    for (const ReleaseVersion& a : std::as_const(versions))
        for (const ReleaseVersion& b : std::as_const(versions))
            for (const ReleaseVersion& c : std::as_const(versions))
                requireOrder(a, b, c);
    return 0;
}
