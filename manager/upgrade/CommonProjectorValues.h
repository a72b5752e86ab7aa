#pragma once

namespace XMLConfig::detail {

class StepDocument;

/// Six settings of projectors become settings of the geometry section: each gets the value that most projectors hold (the
/// one met first on a tie), and the projectors that hold it lose their own. Without projectors it gets fixed values.
void shareCommonProjectorValues(StepDocument& document);

}  // namespace XMLConfig::detail
