#pragma once

#include <string>
#include <vector>

class CComboBox;
class qxCMovie;

/// The names of a movie's cameras in a list to choose from; an entry's place is the camera's index.
class CCameraList {
public:
    /// Show the movie's cameras of now, and select the one of this index, or none. The list is only filled
    /// anew when it is another one.
    void show(CComboBox& box, qxCMovie& movie, int selected);

private:
    std::vector<std::string> m_shown;
    std::vector<std::string> m_names; ///< kept from call to call for its memory only
};
