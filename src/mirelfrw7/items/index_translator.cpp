#include <mirelfrw7/items/index_translator.h>

namespace mirelfrw7 {

IIndexTranslator::~IIndexTranslator() = default;

bool IIndexTranslator::TranslationIsPresented() const {
    return true;
}

} // namespace mirelfrw7
