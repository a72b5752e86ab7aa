#include "store/ElementNumbers.h"

#include "store/ElementAccess.h"
#include "tests/store/TreeSupport.h"

namespace storetests {

TEST(ElementNumbers, AreFoundWhateverTheOrderInMemory) {
    const auto document = parsed("<r/>");
    xercesc::DOMElement& root = *document->getDocumentElement();
    std::vector<xercesc::DOMElement*> made;
    for (int i = 0; i < 4; ++i) made.push_back(document->createElement(XMLConfig::detail::xmlText(u"a")));
    std::vector<XMLConfig::ElementView> asked;
    for (const std::size_t place : {2U, 1U, 3U, 0U}) {
        root.appendChild(made[place]);
        if (place != 2) asked.push_back(XMLConfig::ElementAccess::view(made[place]));
    }
    const auto found = XMLConfig::detail::numbered(asked, root);
    ASSERT_EQ(found.size(), 3U);
    for (std::size_t i = 0; i < found.size(); ++i) {
        EXPECT_EQ(found[i].index, i);
        EXPECT_EQ(found[i].number, i + 2);
    }
}

}  // namespace storetests
