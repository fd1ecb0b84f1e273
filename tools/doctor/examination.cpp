// Tested in tests/tools/doctor/machine/fixTest.cpp.
#include "examination.h"

#include "gather.h"

namespace velk::doctor {

Report examine(const Options& options)
{
    Report report;
    const Facts facts = gather(options);
    report.findings = judge(facts);
    report.isAdministrator = facts.system.isAdministrator;
    if (!options.isFix)
        return report;
    report.mended = mend(report.findings, facts, options);
    if (!report.mended.empty())
        report.findings = judge(gather(options));
    return report;
}

} // namespace velk::doctor
