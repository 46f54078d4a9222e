// SPDX-License-Identifier: BSL-1.0
/// @file
/// The goals of each workload. One function for each file of benchmarks.

#ifndef CALCULATIONS_BENCHMARKS_SPEED_GOALS_H
#define CALCULATIONS_BENCHMARKS_SPEED_GOALS_H

#include "support/GoalTable.h"

namespace Benchmarks {

void measureAxisBuild(const Effort& effort, GoalTable& table);
void measureAxisToGlobal(const Effort& effort, GoalTable& table);
void measureGlobalToAxis(const Effort& effort, GoalTable& table);
void measureProfilePoints(const Effort& effort, GoalTable& table);
void measureProfileAreas(const Effort& effort, GoalTable& table);
void measureMeasuredReference(const Effort& effort, GoalTable& table);
void measureFitting(const Effort& effort, GoalTable& table);
void measureResection(const Effort& effort, GoalTable& table);
void measurePointDetermination(const Effort& effort, GoalTable& table);

}  // namespace Benchmarks

#endif
