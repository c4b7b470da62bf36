// The expectations of scenarios. Each throws SimFailure when it is disappointed.
#pragma once

#include "hosts/sim/scenario/steps/SimStepKind.h"

namespace haloric {

void expectHighlight(SimPlayer& player, const SimJson& arguments);
void expectNoHighlight(SimPlayer& player, const SimJson& arguments);
void expectDim(SimPlayer& player, const SimJson& arguments);
void expectNoDim(SimPlayer& player, const SimJson& arguments);
void expectAppDim(SimPlayer& player, const SimJson& arguments);
void expectTint(SimPlayer& player, const SimJson& arguments);
void expectLog(SimPlayer& player, const SimJson& arguments);
void expectAlert(SimPlayer& player, const SimJson& arguments);
void expectURL(SimPlayer& player, const SimJson& arguments);
void expectTracking(SimPlayer& player, const SimJson& arguments);
void expectFastPath(SimPlayer& player, const SimJson& arguments);
void expectCount(SimPlayer& player, const SimJson& arguments);
void expectSetting(SimPlayer& player, const SimJson& arguments);

} // namespace haloric
