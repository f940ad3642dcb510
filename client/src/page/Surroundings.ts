import type { AskWhy, Clock, Connect } from '../gateway/transport.ts';
import type { TabStorage } from '../store/TabStorage.ts';

/** The gateway that the page came from, and what of the page is the browser's. */
export interface Surroundings {
    readonly connect: Connect;
    readonly askWhy: AskWhy;
    readonly clock: Clock;
    readonly storage: TabStorage;
}
