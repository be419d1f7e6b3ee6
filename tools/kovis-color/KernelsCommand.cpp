#include "Commands.h"
#include "InstructionSets.h"

#include "KOVIS/KOVISCore/ComputerInfoPool.h"
#include "KOVIS/KOVISCore/isAvailable.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <ostream>

namespace kovis::tool
{
namespace
{
nlohmann::ordered_json makeAnswer()
{
    nlohmann::ordered_json answer;
    const hard::ProcessorDescription& machine =
        core::ComputerInfoPool::getInstance().getLocalComputerInfo().getComputerDescription().getProcessorDescription();
    answer["processor"] = machine.getName();
    answer["threads"] = machine.getNbProcessors();
    answer["gpu"] = core::isGpuSupportActivated();
    for (const KernelForm& form : getKernelForms())
        answer["available"][form.name] = form.isAvailable();
    for (const auto& [name, selector] : getKernelTables())
    {
        nlohmann::ordered_json& rows = answer["rows"][name];
        const auto& functions = selector->getFunctions();
        rows["all"] = functions.size();
        for (const KernelForm& form : getKernelForms())
        {
            const processor::InstructionSetsIdentifier sets = form.getSets();
            rows[form.name] = std::count_if(functions.begin(), functions.end(),
                                            [&sets](const auto& row) { return row.getInstructionSets() == sets; });
        }
    }
    return answer;
}
} // namespace

void runKernels(bool bJson, std::ostream& out)
{
    const nlohmann::ordered_json answer = makeAnswer();
    if (bJson)
    {
        out << answer.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) << "\n";
        return;
    }
    out << "processor: " << answer["processor"].get<std::string>() << ", " << answer["threads"] << " thread(s)\n";
    out << "can run:  ";
    for (const auto& [name, bAvailable] : answer["available"].items())
        out << (bAvailable.get<bool>() ? " " : " not ") << name;
    out << (answer["gpu"].get<bool>() ? " gpu" : ", no gpu") << "\n";
    for (const auto& [name, rows] : answer["rows"].items())
    {
        out << name << ": ";
        for (const auto& [form, count] : rows.items())
            out << (form == "all" ? "" : ", ") << count << " " << (form == "all" ? "rows" : form);
        out << "\n";
    }
}
} // namespace kovis::tool
