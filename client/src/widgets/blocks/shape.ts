import { Kind, META_STANDARD_BUTTON_SET } from '../../protocol/names.ts';
import type { Name, PartialValues } from '../../protocol/values.ts';
import type { StoredObject } from '../../store/StoredObject.ts';
import { gridColumns } from '../gridColumns.ts';

/** With no more children than these a container is laid out as one. */
export const FEW = 250;

/** A child with one of these has a place of its own, which blocks would not give it. */
export const placed = [
    'rowSpan',
    'colSpan',
    'geometry',
    'saveGeometry',
    'moveTo',
] as const satisfies readonly Name[];

/** By their names, because ten thousand are asked. */
function isPlaced(values: PartialValues, isInLayout: boolean): boolean {
    const { rowSpan, colSpan, geometry, saveGeometry, moveTo } = values;
    const isInGrid = rowSpan !== undefined || colSpan !== undefined;
    return isInGrid || (!isInLayout && (geometry ?? saveGeometry ?? moveTo) !== undefined);
}

/** What has its own columns, so that those around it do not count. */
const ownColumns: ReadonlySet<string> = new Set([
    Kind.panel,
    Kind.groupBox,
    Kind.tab,
    Kind.tabContainer,
]);

function isLayout({ type }: StoredObject): boolean {
    return type === Kind.boxLayout || type === Kind.gridLayout;
}

function isButtonSet({ values }: StoredObject): boolean {
    return values.meta === META_STANDARD_BUTTON_SET;
}

/** A box directly within an upright one lies; so do the buttons of a set. */
function isRow(object: StoredObject): boolean {
    const { parent, type } = object;
    const lies =
        type === Kind.boxLayout &&
        parent?.type === Kind.boxLayout &&
        parent.parent?.type !== Kind.boxLayout;
    return lies || isButtonSet(object) || (parent !== undefined && isButtonSet(parent));
}

/** Columns of the grid in which the object's children stand; 1 when they stand upright. */
export function columnsOf(object: StoredObject): number {
    if (object.type !== Kind.gridLayout) {
        return gridColumns(object.values.layoutGrid) ?? 1;
    }
    for (let at: StoredObject | undefined = object; at !== undefined; at = at.parent) {
        const columns = gridColumns(at.values.layoutGrid);
        if (columns !== undefined || ownColumns.has(at.type)) {
            return columns ?? 2;
        }
    }
    return 2;
}

/** Whether a child takes a row of the grid for itself. */
export function fillsRow(child: StoredObject, parent: StoredObject): boolean {
    return parent.type === Kind.gridLayout ? isButtonSet(child) : isLayout(child);
}

/** Whether the object has so many children, one below the other, that they stand in blocks. */
export function wantsBlocks(object: StoredObject): boolean {
    if (object.children.length <= FEW || object.type === Kind.tabContainer || isRow(object)) {
        return false;
    }
    const isInLayout = isLayout(object);
    return !object.children.some(({ values }) => isPlaced(values, isInLayout));
}
