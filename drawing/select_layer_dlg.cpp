#include "drawing/select_layer_dlg.h"

#include "drawing/editor_port.h"
#include "drawing/layers.h"
#include "base/textnum.h"

std::vector<vorn::PanelControl> CSelectLayerDlg::panelControls()
{
    std::vector<vorn::PanelControl> controls;
    for (std::size_t k = 0; k < rows.size(); ++k)
        controls.push_back(vorn::checkControl(rows[k].layer, rows[k].checked, [this, k] { onRowChecked(k); }));
    controls.push_back(vorn::buttonControl("<< Pick Layer", [this] { OnPickLayer(); }));
    controls.push_back(vorn::checkControl("Single Choice", singleChoice));
    return controls;
}

void CSelectLayerDlg::OnInitDialog()
{
    std::vector<std::string> layers;
    fillLayerListCtrl(layers);
    rows.clear();
    for (const std::string& layer : layers) rows.push_back({layer, false});
}

void CSelectLayerDlg::onRowChecked(std::size_t row)
{
    if (!singleChoice || row >= rows.size() || !rows[row].checked) return;
    for (std::size_t k = 0; k < rows.size(); ++k)
        if (k != row) rows[k].checked = false;
}

bool CSelectLayerDlg::checkLayer(const std::string& layer)
{
    for (std::size_t k = 0; k < rows.size(); ++k) {
        if (!vorn::iequals(rows[k].layer, layer)) continue;
        rows[k].checked = true;
        onRowChecked(k);
        return true;
    }
    return false;
}

void CSelectLayerDlg::OnPickLayer()
{
    setHidden(true);
    vorn::ObjectId id;
    ads_point picked;
    if (acedEntSel("\nSelect any object in the layer", id, picked) == RTNORM) checkLayer(entityLayerName(id));
    setHidden(false);
}

void CSelectLayerDlg::OnOK()
{
    result.clear();
    for (const Row& row : rows) {
        if (!row.checked) continue;
        if (!result.empty()) result += ",";
        result += row.layer;
    }
    EndDialog(IDOK);
}
