// SPDX-License-Identifier: BSL-1.0
#include "profiles/morphing/ProfileMorphEngine.h"

#include "profiles/morphing/Outlines.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

namespace {

using namespace Ruv::Calculations;
using namespace TestSupport;

using Segments = std::vector<ProfileSegment>;

constexpr int kAllSteps = 31;

std::string narrow(const std::u16string& text) { return std::string(text.begin(), text.end()); }

ProfileMorphEngine engineWith(int flags) {
  ProfileMorphEngine engine;
  engine.configure(flags, 7, 1);
  return engine;
}

/// An engine that has been asked to prepare, and what came of it.
struct Preparation {
  ProfileMorphEngine engine;
  int status;

  Preparation(const ConstProfilePtr& start, const ConstProfilePtr& end, int flags = kAllSteps)
      : engine(engineWith(flags)),
        status(engine.prepare(0, 8, segmentsOf(*start), segmentsOf(*end), 0)) {}

  std::string text() const { return narrow(engine.messageText()); }
};

TEST(ProfileMorphEngine, KnowsItsTexts) {
  ProfileMorphEngine engine;
  const auto textOf = [&engine](int code, bool isEnd) {
    engine.message(code, isEnd);
    return narrow(engine.messageText());
  };
  // As printed in manuals, with their misspellings.
  std::istringstream texts(R"(Missing profiles data.
Reset morpher please.
Start profile generation failed.
Half circles not allowed.
Shift nor found.
Base segment not found.
Lines match generation failed.
Segments match generation failed.
Start morphed side profile could not be generated.
Bottom segments generation failed.
Bottom polyline steps calculation failed.
Bottom polyline generation failed.
Start silhoutte generation failed.
Polyline generation failed.
Niche side polyline generation failed.
Niche interior polyline generation failed.
Segments generation failed.
Niche interior segments generation failed.
Test result generation failed.)");
  int code = 0;
  for (std::string text; std::getline(texts, text); ++code) {
    EXPECT_EQ(textOf(code, false), text);
    // Where a text names the start, there is one that names the end.
    const bool namesStart = text.rfind("Start", 0) == 0;
    EXPECT_EQ(textOf(code, true), namesStart ? "End" + text.substr(5) : text);
  }
  EXPECT_EQ(textOf(101, false), "Profiles morphed.");
  using Limits = std::numeric_limits<int>;
  for (const int other : {-1, code, 100, 102, Limits::min(), Limits::max()}) {
    EXPECT_EQ(textOf(other, true), "Undefined error.");
  }
}

TEST(ProfileMorphEngine, IsResetBetweenPreparations) {
  ProfileMorphEngine engine = engineWith(kAllSteps);
  EXPECT_FALSE(engine.evaluate(0));
  EXPECT_EQ(narrow(engine.messageText()), "Missing data.");

  const Segments start = segmentsOf(*horseshoeWithBenches(5, 2, 0.8, 0.6));
  const Segments end = segmentsOf(*rectangle(5, 6));
  EXPECT_EQ(engine.prepare(0, 8, start, end, 0), 0);
  EXPECT_EQ(narrow(engine.messageText()), "Profiles morphed.");
  EXPECT_FALSE(engine.hasFailed());
  EXPECT_TRUE(engine.evaluate(0));
  EXPECT_TRUE(engine.evaluate(5));
  for (const double at : {-1.0, 8.5, std::nan("")}) {
    EXPECT_FALSE(engine.evaluate(at));
  }

  // The second preparation clears what the first has found, but keeps its outlines.
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(engine.prepare(0, 8, start, end, 0), 1);
    EXPECT_EQ(narrow(engine.messageText()), "Reset morpher please.");
    EXPECT_TRUE(engine.hasFailed());
    EXPECT_FALSE(engine.evaluate(0));
  }
  engine.reset();
  EXPECT_FALSE(engine.evaluate(0));
  // A start outline that cannot be read leaves nothing behind, one that can be read does.
  EXPECT_EQ(engine.prepare(0, 8, {}, end, 0), 1);
  EXPECT_EQ(narrow(engine.messageText()), "Start profile generation failed.");
  EXPECT_EQ(engine.prepare(0, 8, start, {}, 0), 1);
  EXPECT_EQ(narrow(engine.messageText()), "End profile generation failed.");
  EXPECT_EQ(engine.prepare(0, 8, start, end, 0), 1);
  EXPECT_EQ(narrow(engine.messageText()), "Reset morpher please.");
}

TEST(ProfileMorphEngine, RefusesHalfCirclesUnlessAllowed) {
  const auto withRoof = [](double radius) {
    return profileThrough({{-5, 0, 0}, {-5, 2, 0}, {5, 2, radius}, {5, 0, 0}, {-5, 0, 0}});
  };
  const ConstProfilePtr half = withRoof(5);
  const ConstProfilePtr none = horseshoe(5, 2);
  for (const Preparation& made : {Preparation(half, none, 15), Preparation(none, half, 15)}) {
    EXPECT_EQ(made.status, 1);
    EXPECT_EQ(made.text(), "Half circles not allowed.");
  }
  EXPECT_EQ(Preparation(none, none, 15).status, 0);
  EXPECT_EQ(Preparation(withRoof(5.01), none, 15).text(), "Profiles morphed.");
  Preparation allowed(half, rectangle(5, 7));
  EXPECT_EQ(allowed.status, 0);
  ASSERT_TRUE(allowed.engine.evaluate(0.5));
}

TEST(ProfileMorphEngine, RefusesOutlinesThatCrossThemselves) {
  const ConstProfilePtr sound = horseshoe(5, 2);
  const std::vector<ProfileNode> spiral = {{-5, 0, 0}, {-5, 6, 0}, {5, 6, 0}, {5, 1, 0}, {-4, 1, 0},
                                           {-4, 5, 0}, {4, 5, 0},  {4, 0, 0}, {-5, 0, 0}};
  const ConstProfilePtr twiceAround = profileThrough(spiral);
  EXPECT_EQ(Preparation(twiceAround, sound).text(),
            "Start morphed side profile could not be generated.");
  EXPECT_EQ(Preparation(sound, twiceAround).text(),
            "End morphed side profile could not be generated.");
  // Two loops in the wall, of which one turns back what the other has turned.
  const auto looped = [](double width) {
    const std::vector<ProfileNode> nodes = {
        {-5, 0, 0}, {-5, 2, 0}, {-6, 4, 0}, {-6, 2, 0},    {-5, 4, 0}, {-5, 6, 0}, {-4, 8, 0},
        {-4, 6, 0}, {-5, 8, 0}, {-5, 9, 0}, {width, 9, 0}, {5, 0, 0},  {-5, 0, 0}};
    return profileThrough(nodes);
  };
  EXPECT_EQ(Preparation(looped(5), looped(4)).text(), "Test result generation failed.");
}

TEST(ProfileMorphEngine, TakesTheStepsThatItsFlagsName) {
  const ConstProfilePtr start = horseshoe(5, 2);
  const ConstProfilePtr end = horseshoeWithBenches(6, 2, 1, 0.5);
  // Without matching there is nothing to morph; either match makes equal walks a way.
  for (const int flags : {16, 16 + 2 + 4}) {
    EXPECT_EQ(Preparation(start, end, flags).text(), "Segments generation failed.");
  }
  EXPECT_EQ(Preparation(start, end, 16 + 1).text(), "Segments generation failed.");
  EXPECT_EQ(Preparation(start, horseshoe(6, 3), 16 + 1).text(), "Profiles morphed.");
  // Merging removes the joint at the base that matching needs where the bottom is not worked out.
  const auto numNodes = [&](int flags) {
    Preparation made(start, end, flags);
    EXPECT_EQ(made.status, 0) << flags;
    return made.engine.evaluate(4)->size();
  };
  EXPECT_EQ(numNodes(31), 9u);
  EXPECT_EQ(numNodes(16 + 8 + 4), 9u);
  EXPECT_EQ(numNodes(16 + 8 + 2), 9u);
  // The bottom is worked out on request, and only then the base is its middle and not its corner.
  EXPECT_EQ(numNodes(16 + 8), 9u);
  EXPECT_TRUE(Preparation(start, end, 31 - 2).engine.lists().bottomSteps.empty());
  // Then base and crown are the first of the lowest and of the highest corners.
  const MorphLists fromCorner = Preparation(rectangle(5, 6), start, 31 - 2).engine.lists();
  EXPECT_EQ(fromCorner.sideProfiles.start.left.size(), 1u);
  const MorphLists lists = Preparation(start, rectangle(5, 7)).engine.lists();
  ASSERT_FALSE(lists.bottomSteps.empty());
  EXPECT_NEAR(lists.bottomSteps.back().start, 10.0, 1e-12);
  EXPECT_NEAR(lists.bottomSteps.back().end, 10.0, 1e-12);
}

}  // namespace
