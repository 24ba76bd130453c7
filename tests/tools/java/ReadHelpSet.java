// Reads a HelpSet as a viewer does and prints what came of it, in UTF-8: ReadHelpSet FILE.hs
// With a second argument the items' texts stand in place of their numbers.
import java.io.File;
import java.io.InputStream;
import java.io.PrintStream;
import java.net.URL;
import java.util.Enumeration;
import javax.help.HelpSet;
import javax.help.IndexView;
import javax.help.Map;
import javax.help.NavigatorView;
import javax.help.TOCView;
import javax.help.TreeItem;
import javax.swing.tree.DefaultMutableTreeNode;

public class ReadHelpSet {
    private static boolean withTexts;

    private static boolean opens(HelpSet set, Map.ID id) {
        try {
            URL url = set.getCombinedMap().getURLFromID(id);
            if (url == null) return false;
            try (InputStream in = url.openStream()) {
                return in.read() >= 0;
            }
        } catch (Exception e) {
            return false;
        }
    }

    private static void printTexts(String name, DefaultMutableTreeNode root) {
        for (Enumeration<?> e = root.preorderEnumeration(); e.hasMoreElements();) {
            DefaultMutableTreeNode node = (DefaultMutableTreeNode) e.nextElement();
            if (!(node.getUserObject() instanceof TreeItem)) continue;
            TreeItem item = (TreeItem) node.getUserObject();
            String id = item.getID() == null ? "" : " -> " + item.getID().id;
            System.out.println(name + node.getLevel() + ": " + item.getName() + id);
        }
    }

    private static void printView(HelpSet set, String name, DefaultMutableTreeNode root) {
        if (root == null) {
            System.out.println(name + ": unreadable");
            return;
        }
        if (withTexts) {
            printTexts(name, root);
            return;
        }
        int items = 0, targets = 0, open = 0, depth = 0;
        for (Enumeration<?> e = root.preorderEnumeration(); e.hasMoreElements();) {
            DefaultMutableTreeNode node = (DefaultMutableTreeNode) e.nextElement();
            if (!(node.getUserObject() instanceof TreeItem)) continue;
            ++items;
            depth = Math.max(depth, node.getLevel());
            Map.ID id = ((TreeItem) node.getUserObject()).getID();
            if (id == null) continue;
            ++targets;
            if (opens(set, id)) ++open;
        }
        System.out.println(
            name + ": " + items + " items in " + depth + " levels, " + targets + " targets, " + open + " open");
    }

    public static void main(String[] arguments) throws Exception {
        System.setOut(new PrintStream(System.out, true, "UTF-8"));
        withTexts = arguments.length > 1;
        HelpSet set = new HelpSet(null, new File(arguments[0]).toURI().toURL());
        System.out.println("title: " + set.getTitle());
        Map.ID home = set.getHomeID();
        System.out.println("home: " + (home == null ? "none" : opens(set, home) ? "opens" : "unknown"));
        int ids = 0, open = 0;
        for (Enumeration<?> e = set.getCombinedMap().getAllIDs(); e.hasMoreElements();) {
            ++ids;
            if (opens(set, (Map.ID) e.nextElement())) ++open;
        }
        System.out.println("map: " + ids + " ids, " + open + " open");
        for (NavigatorView view : set.getNavigatorViews()) {
            if (view instanceof TOCView) printView(set, "contents", ((TOCView) view).getDataAsTree());
            if (view instanceof IndexView) printView(set, "index", ((IndexView) view).getDataAsTree());
        }
    }
}
