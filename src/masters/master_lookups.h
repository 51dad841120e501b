#pragma once

#include <string>
#include <string_view>

#include "gateway/tally_gateway.h"

namespace vorlane::masters {

/// Whether Tally knows a master, for the box "Ignore if already exists.". Asks
/// only when `enabled`, else false without a word on the wire. The sole sign of
/// absence is Tally's error message: any other answer counts as existing, and so
/// does no answer at all, so that nothing is sent twice to a Tally that is gone.
bool MasterExists(gateway::TallyGateway& tally, std::string_view subtype, std::string_view name,
                  bool enabled);

/// The same for the box "Check Masters before posting Vouchers"; always asks. The
/// name goes in unescaped, so one with an ampersand makes the request malformed.
bool ObjectExists(gateway::TallyGateway& tally, std::string_view subtype, std::string_view name);

}  // namespace vorlane::masters
