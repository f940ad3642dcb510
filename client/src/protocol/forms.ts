import { asId, asText, isObject } from './guards.ts';
import { NO_BUDDY, StyleKey } from './names.ts';

/** Forms of values that one property alone has. */

export type Style = { readonly [K in keyof typeof StyleKey]?: string };

export function asStyle(value: unknown): Style | undefined {
    if (!isObject(value)) {
        return undefined;
    }
    const backgroundColor = asText(value[StyleKey.backgroundColor]);
    const color = asText(value[StyleKey.color]);
    return {
        ...(backgroundColor !== undefined && { backgroundColor }),
        ...(color !== undefined && { color }),
    };
}

/** 0: none. */
export function asBuddy(value: unknown): number | undefined {
    if (value === '0' || value === 0) {
        return 0;
    }
    const id = asId(value);
    return id === NO_BUDDY ? 0 : id;
}
