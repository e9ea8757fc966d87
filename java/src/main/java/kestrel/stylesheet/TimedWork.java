package kestrel.stylesheet;

import java.time.Duration;
import java.util.concurrent.Callable;
import java.util.concurrent.ExecutionException;
import java.util.concurrent.FutureTask;
import java.util.concurrent.TimeUnit;
import java.util.concurrent.TimeoutException;

/** Work on a thread of its own that may take only so long. */
final class TimedWork {
  static final String THREAD = "kestrel style sheet";

  /** Recursion of a sheet must not depend on the thread that the host calls from. */
  private static final long STACK = 8L << 20;

  private TimedWork() {}

  /** What the work gives. What it throws is the cause of the ExecutionException. */
  static <T> T within(Duration limit, Callable<T> work)
      throws ExecutionException, InterruptedException, TimeoutException {
    FutureTask<T> task = new FutureTask<>(work);
    Thread worker = new Thread(null, task, THREAD, STACK);
    worker.setDaemon(true);
    worker.start();
    boolean ended = false;
    try {
      T result = task.get(limit.toMillis(), TimeUnit.MILLISECONDS);
      ended = true;
      return result;
    } catch (ExecutionException failure) {
      ended = true;
      throw failure;
    } finally {
      if (!ended) stop(worker);
    }
  }

  /**
   * Nothing that the worker changes is seen by others, so that it may end anywhere. From Java 20 on the platform cannot
   * stop it: there it runs on, and keeps nobody from ending the VM.
   */
  private static void stop(Thread worker) {
    try {
      Thread.class.getMethod("stop").invoke(worker);
    } catch (ReflectiveOperationException unsupported) {
      worker.interrupt();
    }
  }
}
