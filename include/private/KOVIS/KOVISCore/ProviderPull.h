#pragma once

#include "KOVIS/KOVISCore/BaseActionProvider.h"
#include "KOVIS/KOVISCore/RunContext.h"
#include "KOVIS/KOVISCore/TaskArena.h"

namespace kovis::core::detail
{
/// Pulls a provider's actions and runs them as pieces of a run, on every thread that takes part.
class ProviderPull final : public PullJob
{
public:
    /// `share` is the part of the run's progress that the whole provider is. All must outlive this object.
    ProviderPull(const ActionProviderPtr& provider, RunContext& context, double share)
        : m_provider(provider), m_context(context), m_share(share)
    {
    }

    void pull(unsigned int worker) noexcept override;

private:
    /// False if nothing is left, or the run is to stop.
    bool pullOne(const BaseRequestOrigin& origin);

    const ActionProviderPtr& m_provider;
    RunContext& m_context;
    const double m_share;
};
} // namespace kovis::core::detail
