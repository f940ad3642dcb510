#include "model/CheckBox.h"

#include "ElementName.h"

namespace tdom {

const Base::Impl::Type CheckBox::Impl::s_type{ElementName::checkBox, &BaseButton::Impl::s_type};

CheckBox CheckBox::create(const pf::zero::Ref<pf::zero::Model>& model, const pf::zero::Uuid& uuid,
                          bool checked) {
    const pf::zero::Model::ChangeGroup together(model);
    auto box = createIn<CheckBox>(model, uuid);
    if (box) {
        box->setChecked(checked);
    }
    return box;
}

}  // namespace tdom
