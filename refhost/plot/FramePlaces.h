#pragma once

#include <map>
#include <string>

#include "refhost/template/VisualizationTree.h"

namespace refhost {

/// A frame in the picture, in pixels from its top left corner.
struct FrameBox {
    double fLeft = 0.0;
    double fTop = 0.0;
    double fRight = 0.0;
    double fBottom = 0.0;
};

struct FrameSize {
    double fWidth = 0.0;
    double fHeight = 0.0;
};

/// Places of label frames: by percentages of the picture, by their content, and by frames that
/// are placed already.
class FramePlaces {
public:
    FramePlaces(double pictureWidth, double pictureHeight)
        : fPicture{0.0, 0.0, pictureWidth, pictureHeight}
    {
    }

    /// A frame that others may refer to; an empty id is none.
    void Add(const std::string& id, const FrameBox& box);

    /// Where a frame with such content stands; without a location that says so, in the picture's
    /// top left corner. Remembered by its id.
    FrameBox Place(const tree::LabelFrame& frame, const FrameSize& content);

private:
    FrameBox fPicture;
    std::map<std::string, FrameBox, std::less<>> fPlaced;
};

}  // namespace refhost
