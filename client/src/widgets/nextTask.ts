/** Held until it has done its work: a browser may take away what nobody holds. */
const waiting = new Set<MessageChannel>();

/** Calls it in a task of its own, and at once, unlike a timer. */
export function nextTask(call: () => void): void {
    const channel = new MessageChannel();
    waiting.add(channel);
    channel.port1.onmessage = () => {
        waiting.delete(channel);
        channel.port1.close();
        call();
    };
    channel.port2.postMessage(undefined);
}
